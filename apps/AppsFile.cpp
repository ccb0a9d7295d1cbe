#include "apps/AppsFile.h"

#include "core/FileErrors.h"
#include "core/ReplaceFile.h"

#include <QFileInfo>
#include <limits>

using AppRecordLayout::Length;

QString AppsFilePath(const QString& appPath)
{
    return appPath + QStringLiteral("/Apps.cfg");
}

std::int16_t AppRecordCount(qint64 fileLength)
{
    const qint64 count = (fileLength + Length / 2) / Length;
    if (count > std::numeric_limits<std::int16_t>::max())
        throw OverflowError();
    return std::int16_t(count);
}

AppsFileReader::AppsFileReader(const QString& fileName) : file_(fileName)
{
    if (!file_.open(QIODevice::ReadOnly))
        throw FileAccessError(file_.errorString());
    count_ = AppRecordCount(file_.size());
}

AppRecord AppsFileReader::Read(int number)
{
    if (!file_.seek(qint64(number - 1) * Length))
        throw FileAccessError(file_.errorString());
    const QByteArray bytes = file_.read(Length);
    if (bytes.isEmpty() && file_.error() != QFileDevice::NoError)
        throw FileAccessError(file_.errorString());
    return DecodeAppRecord(bytes);
}

std::vector<AppRecord> ReadAppsFile(const QString& fileName)
{
    const QFileInfo info(fileName);
    if (!info.exists() || info.size() == 0)
        return {};
    AppsFileReader reader(fileName);
    std::vector<AppRecord> records;
    records.reserve(std::size_t(reader.Count()));
    for (int i = 1; i <= reader.Count(); ++i)
        records.push_back(reader.Read(i));
    return records;
}

void WriteAppsFile(const QString& fileName, const std::vector<AppRecord>& records)
{
    if (records.empty()) {
        QFile file(fileName);
        if (file.exists() && !file.remove())
            throw FileAccessError(file.errorString());
        return;
    }
    ReplaceFile(fileName, [&records](QIODevice& file) {
        for (const AppRecord& record : records)
            file.write(EncodeAppRecord(record));
    });
}
