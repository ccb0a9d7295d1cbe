#pragma once

#include "apps/AppRecord.h"
#include "core/RecordFile.h"

#include <QString>
#include <cstdint>
#include <vector>

// Apps.cfg: fixed records with nothing before, between or behind them.

// The file in the data folder.
QString AppsFilePath(const QString& appPath);

// An open Apps.cfg, read record by record. Every failure throws platform::RuntimeError.
class AppsFileReader
{
public:
    explicit AppsFileReader(const QString& fileName);
    std::int16_t Count() const { return file_.Count(); }
    // Record number (from 1).
    AppRecord Read(int number);

private:
    RecordFile::Reader file_;
};

// The whole list; an absent or empty file is an empty list. Throws platform::RuntimeError.
std::vector<AppRecord> ReadAppsFile(const QString& fileName);

// Replaces the file with the records, atomically; an empty list leaves no file.
// Throws platform::RuntimeError.
void WriteAppsFile(const QString& fileName, const std::vector<AppRecord>& records);
