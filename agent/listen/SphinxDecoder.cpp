#include "agent/listen/SphinxDecoder.h"

#include <QFile>
#include <QStringList>
#include <pocketsphinx.h>

namespace agent::listen
{

namespace
{
constexpr const char* GrammarSearch = "grammar";
constexpr const char* LoopSearch = "loop";
} // namespace

QString SphinxDecoder::modelFolder()
{
    return QStringLiteral("/usr/share/pocketsphinx/model/en-us");
}

SphinxDecoder::SphinxDecoder()
{
    const QByteArray hmm = QFile::encodeName(modelFolder() + QStringLiteral("/en-us"));
    if (!QFile::exists(modelFolder() + QStringLiteral("/en-us/mdef")))
        return;
    // No dictionary file: the words of each grammar are added one by one, which keeps the
    // start fast (the full dictionary costs about 100 ms more).
    // All senones are scored in every frame: PocketSphinx normalises each frame by its best
    // active senone, and only with the same set active in both searches are their scores
    // comparable.
    cmd_ln_t* config = cmd_ln_init(nullptr, ps_args(), TRUE, "-hmm", hmm.constData(), "-compallsen",
                                   "yes", "-logfn", "/dev/null", nullptr);
    if (!config)
        return;
    decoder_ = ps_init(config);
    cmd_ln_free_r(config);
    if (decoder_ && !setUpPhoneLoop()) {
        ps_free(decoder_);
        decoder_ = nullptr;
    }
}

// A loop over every phone, as a grammar of one-phone words: it explains any speech at least
// about as well as a command does, so the gap between the two tells whether the command
// really fits. PocketSphinx's own allphone search with the phone language model was measured
// at 4-17 s per utterance here; this grammar takes 50-250 ms.
bool SphinxDecoder::setUpPhoneLoop()
{
    static const QStringList phones =
        QStringLiteral(
            "AA AE AH AO AW AY B CH D DH EH ER EY F G HH IH IY JH K L M N NG OW OY P R S SH T TH "
            "UH UW V W Y Z ZH")
            .split(QLatin1Char(' '));
    QStringList words;
    for (const QString& phone : phones) {
        const QString word = QStringLiteral("phone_") + phone.toLower();
        if (ps_add_word(decoder_, word.toUtf8().constData(), phone.toUtf8().constData(), FALSE) < 0)
            return false;
        words << word;
    }
    const QString loop = QStringLiteral("#JSGF V1.0;\ngrammar loop;\npublic <loop> = ( %1 )+;\n")
                             .arg(words.join(QStringLiteral(" | ")));
    return ps_set_jsgf_string(decoder_, LoopSearch, loop.toUtf8().constData()) == 0;
}

SphinxDecoder::~SphinxDecoder()
{
    if (decoder_)
        ps_free(decoder_);
}

bool SphinxDecoder::setGrammar(const QString& jsgf, const QHash<QString, QString>& pronunciations)
{
    hasGrammar_ = false;
    if (!decoder_ || jsgf.isEmpty())
        return false;
    // Sorted, so that "what" is added before its alternative "what(2)", as PocketSphinx needs.
    QStringList words = pronunciations.keys();
    words.sort();
    for (const QString& word : words) {
        const QString& phones = pronunciations[word];
        if (knownWords_.value(word) == phones)
            continue;
        if (ps_add_word(decoder_, word.toUtf8().constData(), phones.toUtf8().constData(), FALSE) <
            0)
            return false;
        knownWords_.insert(word, phones);
    }
    hasGrammar_ = ps_set_jsgf_string(decoder_, GrammarSearch, jsgf.toUtf8().constData()) == 0;
    return hasGrammar_;
}

std::int32_t SphinxDecoder::decodeWith(const char* search, std::span<const std::int16_t> samples,
                                       QString* hypothesis)
{
    std::int32_t score = 0;
    if (ps_set_search(decoder_, search) != 0 || ps_start_utt(decoder_) != 0)
        return score;
    ps_process_raw(decoder_, samples.data(), samples.size(), FALSE, TRUE);
    ps_end_utt(decoder_);
    const char* text = ps_get_hyp(decoder_, &score);
    if (hypothesis)
        *hypothesis = text ? QString::fromUtf8(text) : QString();
    return score;
}

// When no path reaches the end of the grammar, PocketSphinx still returns the best partial
// one, whose score covers fewer frames and so looks better than it is.
bool SphinxDecoder::pathReachesEnd(int frames)
{
    int lastFrame = -1;
    for (ps_seg_t* segment = ps_seg_iter(decoder_); segment; segment = ps_seg_next(segment)) {
        int start = 0;
        ps_seg_frames(segment, &start, &lastFrame);
    }
    return lastFrame >= frames - 3;
}

Decoding SphinxDecoder::decode(std::span<const std::int16_t> samples)
{
    Decoding result;
    if (!decoder_ || !hasGrammar_ || samples.empty())
        return result;
    const std::int32_t grammarScore = decodeWith(GrammarSearch, samples, &result.hypothesis);
    const int frames = ps_get_n_frames(decoder_);
    if (result.hypothesis.isEmpty() || frames <= 0 || !pathReachesEnd(frames))
        return {};
    const std::int32_t loopScore = decodeWith(LoopSearch, samples, nullptr);
    result.confidence = double(grammarScore - loopScore) / frames;
    return result;
}

} // namespace agent::listen
