#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>

// The text file of a reading, read line by line so that a file of any size needs only a
// bounded buffer. A line ends at CR, LF or CR LF. The text is taken as UTF-8 when the whole
// file is well-formed UTF-8 and as Windows-1252 otherwise, so that both modern files and
// files from the old platform read without mojibake. A line longer than SegmentBytes comes
// in segments, so even a line of many megabytes is never held whole.
class TextFile
{
public:
    static constexpr qint64 SegmentBytes = 64 * 1024;

    // Throws platform::RuntimeError when the file cannot be opened.
    void open(const QString& path);
    void close();
    bool isOpen() const { return file_.isOpen(); }
    qint64 size() const { return size_; }
    bool isUtf8() const { return utf8_; }

    // True when no line follows the current one; a closed file is at its end.
    bool atEnd() const { return !isOpen() || nextLine_ >= size_; }
    // The next line, or its first segment; the unread rest of the current line is passed over.
    QString readLine();
    bool lineContinues() const { return pending_; }
    // The next segment of the current line; empty when it has none.
    QString readMore();
    // Whether the unread segments of the current line hold nothing but spaces.
    bool restOfLineBlank() const { return !pending_ || pos_ > lastNonBlank_; }

private:
    void detectEncoding();
    void findLineEnd();
    QString takeSegment();
    QString decode(const char* data, qint64 size) const;
    // Brings the byte at offset into the cached block; returns how many bytes from offset on
    // are cached, 0 past the end.
    qint64 cache(qint64 offset);
    const char* cached(qint64 offset) const { return block_.constData() + (offset - blockStart_); }

    QFile file_;
    qint64 size_ = 0;
    bool utf8_ = true;
    QByteArray block_;
    qint64 blockStart_ = 0;

    qint64 pos_ = 0;      // next unread byte of the current line
    qint64 lineEnd_ = 0;  // where its line end starts
    qint64 nextLine_ = 0; // where the following line starts
    qint64 lastNonBlank_ = -1;
    bool pending_ = false;
};
