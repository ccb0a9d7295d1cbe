#pragma once

#include "apps/AppRecord.h"

#include <QFile>
#include <QString>
#include <cstdint>
#include <vector>

// Apps.cfg: fixed records with nothing before, between or behind them.

// The file in the data folder.
QString AppsFilePath(const QString& appPath);

// The number of records in a file of that length: a last piece of 180 bytes or more counts
// as one more. Throws the overflow error past the 16-bit count that the format allows.
std::int16_t AppRecordCount(qint64 fileLength);

// An open Apps.cfg, read record by record. Every failure throws platform::RuntimeError.
class AppsFileReader
{
public:
    explicit AppsFileReader(const QString& fileName);
    std::int16_t Count() const { return count_; }
    // Record number (from 1).
    AppRecord Read(int number);

private:
    QFile file_;
    std::int16_t count_ = 0;
};

// The whole list; an absent or empty file is an empty list. Throws platform::RuntimeError.
std::vector<AppRecord> ReadAppsFile(const QString& fileName);

// Replaces the file with the records, atomically; an empty list leaves no file.
// Throws platform::RuntimeError.
void WriteAppsFile(const QString& fileName, const std::vector<AppRecord>& records);
