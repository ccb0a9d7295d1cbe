#include "apps/AppsFile.h"

#include <algorithm>

using AppRecordLayout::Length;

QString AppsFilePath(const QString& appPath)
{
    return appPath + QStringLiteral("/Apps.cfg");
}

AppsFileReader::AppsFileReader(const QString& fileName) : file_(fileName, Length) {}

AppRecord AppsFileReader::Read(int number)
{
    return DecodeAppRecord(file_.Read(number));
}

std::vector<AppRecord> ReadAppsFile(const QString& fileName)
{
    const std::vector<QByteArray> bytes = RecordFile::ReadAll(fileName, Length);
    std::vector<AppRecord> records(bytes.size());
    std::transform(bytes.begin(), bytes.end(), records.begin(), DecodeAppRecord);
    return records;
}

void WriteAppsFile(const QString& fileName, const std::vector<AppRecord>& records)
{
    std::vector<QByteArray> bytes(records.size());
    std::transform(records.begin(), records.end(), bytes.begin(), EncodeAppRecord);
    RecordFile::Replace(fileName, bytes);
}
