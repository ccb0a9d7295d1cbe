#include "core/RecordFile.h"

#include "core/FileErrors.h"
#include "core/ReplaceFile.h"

#include <QFileInfo>
#include <QtEndian>
#include <limits>

namespace RecordFile
{

std::int16_t Count(qint64 fileLength, int recordLength)
{
    qint64 count = fileLength / recordLength;
    const qint64 rest = fileLength % recordLength;
    if (2 * rest > recordLength || (2 * rest == recordLength && count % 2 == 1))
        ++count;
    if (count > std::numeric_limits<std::int16_t>::max())
        throw OverflowError();
    return std::int16_t(count);
}

Reader::Reader(const QString& fileName, int recordLength)
    : file_(fileName), recordLength_(recordLength)
{
    if (!file_.open(QIODevice::ReadOnly))
        throw FileAccessError(file_.errorString());
    count_ = RecordFile::Count(file_.size(), recordLength);
}

QByteArray Reader::Read(int number)
{
    if (!file_.seek(qint64(number - 1) * recordLength_))
        throw FileAccessError(file_.errorString());
    const QByteArray bytes = file_.read(recordLength_);
    if (bytes.isEmpty() && file_.error() != QFileDevice::NoError)
        throw FileAccessError(file_.errorString());
    return bytes;
}

std::vector<QByteArray> ReadAll(const QString& fileName, int recordLength)
{
    const QFileInfo info(fileName);
    if (!info.exists() || info.size() == 0)
        return {};
    Reader reader(fileName, recordLength);
    std::vector<QByteArray> records;
    records.reserve(std::size_t(reader.Count()));
    for (int i = 1; i <= reader.Count(); ++i)
        records.push_back(reader.Read(i));
    return records;
}

void Replace(const QString& fileName, const std::vector<QByteArray>& records)
{
    if (records.empty()) {
        QFile file(fileName);
        if (file.exists() && !file.remove())
            throw FileAccessError(file.errorString());
        return;
    }
    ReplaceFile(fileName, [&records](QIODevice& file) {
        for (const QByteArray& record : records)
            if (file.write(record) != record.size())
                throw FileAccessError(file.errorString());
    });
}

QByteArray Completed(const QByteArray& bytes, int textBytes, int recordLength)
{
    QByteArray whole = bytes.left(recordLength);
    if (whole.size() < textBytes)
        whole.append(QByteArray(textBytes - whole.size(), ' '));
    whole.append(QByteArray(recordLength - whole.size(), '\0'));
    return whole;
}

void AppendInt16(QByteArray& bytes, std::int16_t value)
{
    char little[2];
    qToLittleEndian(value, little);
    bytes.append(little, 2);
}

std::int16_t Int16At(const QByteArray& bytes, int offset)
{
    return qFromLittleEndian<std::int16_t>(bytes.constData() + offset);
}

} // namespace RecordFile
