#include "agent/speech/SpeechTags.h"

#include <algorithm>
#include <optional>

namespace agent::speech
{

namespace
{

constexpr QChar Backslash = u'\\';
constexpr QChar Quote = u'"';

// Reads the tag at text[pos] (a backslash). The tag runs up to its closing backslash; quoted
// values may hold backslashes of their own.
class TagReader
{
public:
    TagReader(const QString& text, qsizetype pos) : text_(text), pos_(pos + 1) {}

    // The tag's name, or nothing when the backslash does not start "name=".
    std::optional<QString> name()
    {
        const qsizetype start = pos_;
        while (pos_ < text_.size() && text_[pos_].isLetter())
            ++pos_;
        if (pos_ == start || pos_ >= text_.size() || text_[pos_] != u'=')
            return std::nullopt;
        const QString result = text_.mid(start, pos_ - start).toLower();
        ++pos_;
        return result;
    }

    std::optional<QString> quoted()
    {
        if (pos_ >= text_.size() || text_[pos_] != Quote)
            return std::nullopt;
        const qsizetype close = text_.indexOf(Quote, pos_ + 1);
        if (close < 0)
            return std::nullopt;
        const QString result = text_.mid(pos_ + 1, close - pos_ - 1);
        pos_ = close + 1;
        return result;
    }

    bool literal(QChar c)
    {
        if (pos_ >= text_.size() || text_[pos_] != c)
            return false;
        ++pos_;
        return true;
    }

    std::optional<int> number()
    {
        const qsizetype start = pos_;
        while (pos_ < text_.size() && text_[pos_].isDigit())
            ++pos_;
        bool ok = false;
        const int value = text_.mid(start, pos_ - start).toInt(&ok);
        return ok ? std::optional<int>(value) : std::nullopt;
    }

    // True when the tag ends here with its closing backslash.
    bool close() { return literal(Backslash); }

    // Where the text goes on after a tag that could not be read: past the next backslash.
    qsizetype skipMalformed() const
    {
        const qsizetype next = text_.indexOf(Backslash, pos_);
        return next < 0 ? text_.size() : next + 1;
    }

    qsizetype position() const { return pos_; }

private:
    const QString& text_;
    qsizetype pos_;
};

class SegmentBuilder
{
public:
    explicit SegmentBuilder(const VoiceParams& start) : voice_(start) {}

    void appendPlain(const QString& shown, const QString& spoken)
    {
        if (segments_.empty() || segments_.back().mapped || !(segments_.back().voice == voice_))
            segments_.push_back({QString(), QString(), false, voice_});
        segments_.back().shown += shown;
        segments_.back().spoken += spoken;
    }

    void appendMapped(const QString& spoken, const QString& shown)
    {
        segments_.push_back({spoken, shown, true, voice_});
    }

    VoiceParams& voice() { return voice_; }
    std::vector<SpeechSegment> take() { return std::move(segments_); }

private:
    VoiceParams voice_;
    std::vector<SpeechSegment> segments_;
};

// Applies the tag at text[pos]; returns where the text goes on, or nothing when the backslash
// starts no tag at all.
std::optional<qsizetype> applyTag(const QString& text, qsizetype pos, SegmentBuilder& out)
{
    TagReader reader(text, pos);
    const std::optional<QString> name = reader.name();
    if (!name)
        return std::nullopt;

    VoiceParams& voice = out.voice();
    if (*name == u"chr") {
        const std::optional<QString> value = reader.quoted();
        if (value && reader.close()) {
            // A character the synthesiser does not have leaves the voice as it is.
            if (value->compare(u"normal", Qt::CaseInsensitive) == 0)
                voice.whisper = false;
            else if (value->compare(u"whisper", Qt::CaseInsensitive) == 0)
                voice.whisper = true;
            return reader.position();
        }
    } else if (*name == u"pit" || *name == u"spd" || *name == u"vol") {
        const std::optional<int> value = reader.number();
        if (value && reader.close()) {
            if (*name == u"pit")
                voice.pitchHz = *value;
            else if (*name == u"spd")
                voice.speedWpm = *value;
            else
                voice.volume = std::min(*value, 65535);
            return reader.position();
        }
    } else if (*name == u"map") {
        const std::optional<QString> spoken = reader.quoted();
        if (spoken && reader.literal(u'=')) {
            const std::optional<QString> shown = reader.quoted();
            if (shown && reader.close()) {
                out.appendMapped(*spoken, *shown);
                return reader.position();
            }
        }
    }
    return reader.skipMalformed();
}

} // namespace

std::vector<SpeechSegment> parseSpeechTags(const QString& text, const VoiceParams& start)
{
    SegmentBuilder out(start);
    qsizetype pos = 0;
    while (pos < text.size()) {
        const qsizetype tag = text.indexOf(Backslash, pos);
        const qsizetype plainEnd = tag < 0 ? text.size() : tag;
        if (plainEnd > pos) {
            const QString plain = text.mid(pos, plainEnd - pos);
            out.appendPlain(plain, plain);
        }
        if (tag < 0)
            break;
        if (const std::optional<qsizetype> next = applyTag(text, tag, out)) {
            pos = *next;
        } else {
            // Kept in the balloon, but a space for the synthesiser, which would say its name.
            out.appendPlain(QString(Backslash), QStringLiteral(" "));
            pos = tag + 1;
        }
    }
    return out.take();
}

} // namespace agent::speech
