#include "core/TextFile.h"

#include "core/Cp1252.h"
#include "core/Utf8Validator.h"
#include "platform/RuntimeError.h"

#include <QFileInfo>
#include <algorithm>

namespace
{

constexpr qint64 BlockBytes = 64 * 1024;

bool IsUtf8Continuation(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

} // namespace

void TextFile::open(const QString& path)
{
    close();
    file_.setFileName(path);
    const QFileInfo info(path);
    if (!info.exists())
        throw platform::RuntimeError(platform::errors::FileNotFound, QStringLiteral("Quorl"),
                                     QStringLiteral("File not found"));
    if (info.isDir() || !file_.open(QIODevice::ReadOnly))
        throw platform::RuntimeError(75, QStringLiteral("Quorl"),
                                     QStringLiteral("Path/File access error"));
    size_ = file_.size();
    detectEncoding();
    nextLine_ = pos_ = lineEnd_ = 0;
    if (utf8_ && cache(0) >= 3 && block_.startsWith("\xEF\xBB\xBF"))
        nextLine_ = pos_ = lineEnd_ = 3;
}

void TextFile::close()
{
    file_.close();
    size_ = 0;
    block_.clear();
    blockStart_ = 0;
    nextLine_ = pos_ = lineEnd_ = 0;
    lastNonBlank_ = -1;
    pending_ = false;
}

void TextFile::detectEncoding()
{
    Utf8Validator validator;
    QByteArray buffer(BlockBytes, Qt::Uninitialized);
    qint64 got = 0;
    while (!validator.failed() && (got = file_.read(buffer.data(), BlockBytes)) > 0)
        validator.feed(buffer.constData(), std::size_t(got));
    utf8_ = validator.valid();
}

qint64 TextFile::cache(qint64 offset)
{
    if (offset >= size_)
        return 0;
    if (offset < blockStart_ || offset >= blockStart_ + block_.size()) {
        block_.resize(BlockBytes);
        const qint64 got = file_.seek(offset) ? file_.read(block_.data(), BlockBytes) : -1;
        block_.resize(std::max<qint64>(got, 0));
        blockStart_ = offset;
        // A file cut short while it is read ends where its bytes end.
        if (got <= 0)
            size_ = offset;
    }
    return blockStart_ + block_.size() - offset;
}

QString TextFile::readLine()
{
    pos_ = nextLine_;
    pending_ = false;
    if (atEnd())
        return {};
    findLineEnd();
    return takeSegment();
}

QString TextFile::readMore()
{
    return pending_ ? takeSegment() : QString();
}

void TextFile::findLineEnd()
{
    lastNonBlank_ = pos_ - 1;
    qint64 offset = pos_;
    while (const qint64 available = cache(offset)) {
        const char* bytes = cached(offset);
        for (qint64 i = 0; i < available; ++i) {
            const char c = bytes[i];
            if (c == '\r' || c == '\n') {
                lineEnd_ = offset + i;
                nextLine_ = lineEnd_ + 1;
                if (c == '\r' && cache(nextLine_) > 0 && *cached(nextLine_) == '\n')
                    ++nextLine_;
                return;
            }
            if (c != ' ')
                lastNonBlank_ = offset + i;
        }
        offset += available;
    }
    lineEnd_ = nextLine_ = size_;
}

QString TextFile::takeSegment()
{
    qint64 end = std::min(lineEnd_, pos_ + SegmentBytes);
    // A segment never splits a UTF-8 sequence.
    while (utf8_ && end < lineEnd_ && end > pos_ && cache(end) > 0 &&
           IsUtf8Continuation(*cached(end)))
        --end;
    QString text;
    if (cache(pos_) >= end - pos_) {
        text = decode(cached(pos_), end - pos_);
    } else {
        QByteArray bytes;
        bytes.reserve(end - pos_);
        qint64 offset = pos_;
        while (offset < end) {
            const qint64 count = std::min(cache(offset), end - offset);
            if (count == 0)
                break;
            bytes.append(cached(offset), count);
            offset += count;
        }
        if (offset < end)
            end = lineEnd_ = nextLine_ = offset;
        text = decode(bytes.constData(), bytes.size());
    }
    pos_ = end;
    pending_ = pos_ < lineEnd_;
    if (!pending_)
        pos_ = nextLine_;
    return text;
}

QString TextFile::decode(const char* data, qint64 size) const
{
    return utf8_ ? QString::fromUtf8(data, size) : Cp1252::Decode(QByteArrayView(data, size));
}
