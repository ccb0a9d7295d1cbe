#include "agent/listen/SphinxDecoder.h"

#include <QFile>
#include <QFileInfo>
#include <QStringList>
#include <algorithm>
#include <cerrno>
#include <limits>
#include <pocketsphinx.h>
#include <sphinxbase/cmn.h>
#include <sphinxbase/err.h>
#include <sphinxbase/feat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace agent::listen
{

namespace
{
constexpr const char* GrammarSearch = "grammar";
constexpr const char* LoopSearch = "loop";

// How many frames of earlier speech the cepstral mean stands for when an utterance starts.
// PocketSphinx keeps 500; with 100 the utterance's own frames take over sooner, nearer to a
// mean over the whole utterance, and the synthetic voices of the tests were heard best.
constexpr int CarriedMeanFrames = 100;

void carryLessOfTheMean(cmn_t* cmn)
{
    if (cmn->nframe <= CarriedMeanFrames)
        return;
    for (int i = 0; i < cmn->veclen; ++i)
        cmn->sum[i] = cmn->sum[i] * CarriedMeanFrames / cmn->nframe;
    cmn->nframe = CarriedMeanFrames;
}

// In the child that tries the model: fail at once, without the parent's exit handlers.
void leaveOnFatalError(void*, err_lvl_t level, const char*, ...)
{
    if (level == ERR_FATAL)
        _exit(EXIT_FAILURE);
}
} // namespace

QString SphinxDecoder::modelFolder()
{
    return QStringLiteral("/usr/share/pocketsphinx/model/en-us");
}

bool SphinxDecoder::modelPresent(const QString& modelFolder)
{
    static const char* const files[] = {"mdef",    "means",     "variances",
                                        "sendump", "noisedict", "transition_matrices"};
    return std::all_of(std::begin(files), std::end(files), [&](const char* name) {
        const QFileInfo file(modelFolder + QStringLiteral("/en-us/") + QLatin1String(name));
        return file.isFile() && file.isReadable();
    });
}

void SphinxDecoder::Free::operator()(ps_decoder_s* decoder) const
{
    ps_free(decoder);
}

SphinxDecoder::SphinxDecoder(const QString& modelFolder)
{
    if (!modelPresent(modelFolder))
        return;
    const QByteArray hmm = QFile::encodeName(modelFolder + QStringLiteral("/en-us"));
    if (!loadsInChild(hmm.constData()))
        return;
    grammar_.reset(initDecoder(hmm.constData()));
    loop_.reset(initDecoder(hmm.constData()));
    if (!isLoaded() || !setUpPhoneLoop()) {
        grammar_.reset();
        loop_.reset();
    }
}

SphinxDecoder::~SphinxDecoder() = default;

ps_decoder_s* SphinxDecoder::initDecoder(const char* hmm)
{
    // No dictionary file: the words of each grammar are added one by one, which keeps the
    // start fast (the full dictionary costs about 100 ms more).
    // All senones are scored in every frame: PocketSphinx normalises each frame by its best
    // active senone, and only with the same set active in both searches are their scores
    // comparable.
    // The cepstral mean is a running one rather than the whole utterance's, so that frames
    // are scored as they arrive; it follows the voice and the microphone.
    cmd_ln_t* config = cmd_ln_init(nullptr, ps_args(), TRUE, "-hmm", hmm, "-compallsen", "yes",
                                   "-cmn", "live", "-logfn", "/dev/null", nullptr);
    if (!config)
        return nullptr;
    ps_decoder_s* decoder = ps_init(config);
    cmd_ln_free_r(config);
    return decoder;
}

// sphinxbase ends the whole process when a model file is damaged, so a child process loads
// the model first; a damaged model is then reported rather than taking the program with it.
bool SphinxDecoder::loadsInChild(const char* hmm)
{
    const pid_t child = fork();
    if (child < 0)
        return false;
    if (child == 0) {
        // Only this thread exists here: whatever happens, leave without the parent's exit
        // handlers.
        err_set_callback(leaveOnFatalError, nullptr);
        _exit(initDecoder(hmm) ? EXIT_SUCCESS : EXIT_FAILURE);
    }
    int status = 0;
    while (waitpid(child, &status, 0) < 0) {
        if (errno != EINTR)
            return false;
    }
    return WIFEXITED(status) && WEXITSTATUS(status) == EXIT_SUCCESS;
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
        if (ps_add_word(loop_.get(), word.toUtf8().constData(), phone.toUtf8().constData(), FALSE) <
            0)
            return false;
        words << word;
    }
    const QString loop = QStringLiteral("#JSGF V1.0;\ngrammar loop;\npublic <loop> = ( %1 )+;\n")
                             .arg(words.join(QStringLiteral(" | ")));
    return ps_set_jsgf_string(loop_.get(), LoopSearch, loop.toUtf8().constData()) == 0 &&
           ps_set_search(loop_.get(), LoopSearch) == 0;
}

bool SphinxDecoder::setGrammar(const QString& jsgf, const QHash<QString, QString>& pronunciations)
{
    hasGrammar_ = false;
    if (!isLoaded() || inUtterance_ || jsgf.isEmpty())
        return false;
    // Sorted, so that "what" is added before its alternative "what(2)", as PocketSphinx needs.
    QStringList words = pronunciations.keys();
    words.sort();
    for (const QString& word : words) {
        const QString& phones = pronunciations[word];
        if (knownWords_.value(word) == phones)
            continue;
        if (ps_add_word(grammar_.get(), word.toUtf8().constData(), phones.toUtf8().constData(),
                        FALSE) < 0)
            return false;
        knownWords_.insert(word, phones);
    }
    hasGrammar_ =
        ps_set_jsgf_string(grammar_.get(), GrammarSearch, jsgf.toUtf8().constData()) == 0 &&
        ps_set_search(grammar_.get(), GrammarSearch) == 0;
    return hasGrammar_;
}

void SphinxDecoder::startUtterance()
{
    if (inUtterance_) {
        ps_end_utt(grammar_.get());
        ps_end_utt(loop_.get());
    }
    inUtterance_ = hasGrammar_ && ps_start_utt(grammar_.get()) == 0;
    if (inUtterance_ && ps_start_utt(loop_.get()) != 0) {
        ps_end_utt(grammar_.get());
        inUtterance_ = false;
    }
    heardAudio_ = false;
    for (ps_decoder_s* decoder : {grammar_.get(), loop_.get()})
        carryLessOfTheMean(ps_get_feat(decoder)->cmn_struct);
}

void SphinxDecoder::addAudio(std::span<const std::int16_t> samples)
{
    if (!inUtterance_ || samples.empty())
        return;
    heardAudio_ = true;
    ps_process_raw(grammar_.get(), samples.data(), samples.size(), FALSE, FALSE);
    ps_process_raw(loop_.get(), samples.data(), samples.size(), FALSE, FALSE);
    // The mean follows the utterance as it goes, not only from one utterance to the next.
    cmn_live_update(ps_get_feat(grammar_.get())->cmn_struct);
    cmn_live_update(ps_get_feat(loop_.get())->cmn_struct);
}

std::vector<SphinxDecoder::Segment> SphinxDecoder::bestPath(ps_decoder_s* decoder)
{
    std::vector<Segment> path;
    for (ps_seg_t* it = ps_seg_iter(decoder); it; it = ps_seg_next(it)) {
        Segment segment;
        const char* word = ps_seg_word(it);
        // Fillers (<s>, </s>, <sil>, [NOISE]) and empty transitions carry no word.
        segment.isWord = word && word[0] != '<' && word[0] != '[' && word[0] != '(';
        ps_seg_frames(it, &segment.start, &segment.end);
        std::int32_t languageScore = 0;
        std::int32_t backoff = 0;
        ps_seg_prob(it, &segment.acousticScore, &languageScore, &backoff);
        path.push_back(segment);
    }
    return path;
}

// The phone loop's acoustic score over the frames of a word, sharing out the loop's
// segments by their overlap with it.
double SphinxDecoder::loopScoreWithin(const std::vector<Segment>& loop, int start, int end)
{
    double score = 0;
    for (const Segment& segment : loop) {
        const int overlap = std::min(end, segment.end) - std::max(start, segment.start) + 1;
        if (overlap > 0)
            score += double(segment.acousticScore) * overlap / (segment.end - segment.start + 1);
    }
    return score;
}

Decoding SphinxDecoder::finishUtterance()
{
    if (!inUtterance_)
        return {};
    inUtterance_ = false;
    ps_end_utt(grammar_.get());
    ps_end_utt(loop_.get());
    Decoding result;
    if (!heardAudio_)
        return result;
    std::int32_t grammarScore = 0;
    const char* text = ps_get_hyp(grammar_.get(), &grammarScore);
    result.hypothesis = text ? QString::fromUtf8(text) : QString();
    const int frames = ps_get_n_frames(grammar_.get());
    const std::vector<Segment> words = bestPath(grammar_.get());
    // When no path reaches the end of the grammar, PocketSphinx still returns the best
    // partial one, whose score covers fewer frames and so looks better than it is.
    if (result.hypothesis.isEmpty() || frames <= 0 || words.empty() ||
        words.back().end < frames - 3)
        return {};
    std::int32_t loopScore = 0;
    ps_get_hyp(loop_.get(), &loopScore);
    const std::vector<Segment> loop = bestPath(loop_.get());
    result.confidence = double(grammarScore - loopScore) / frames;
    // One wrong word in an otherwise right phrase ("what is the date" for "... time") hardly
    // moves the whole utterance's score, so the weakest word counts too.
    for (const Segment& word : words) {
        if (!word.isWord || word.end < word.start)
            continue;
        const double gap = (word.acousticScore - loopScoreWithin(loop, word.start, word.end)) /
                           (word.end - word.start + 1);
        result.weakestWord = std::min(result.weakestWord, gap);
    }
    return result;
}

} // namespace agent::listen
