#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>
#include <cstdint>
#include <vector>

// Files of fixed-length records with nothing before, between or behind them, as the program's
// data files are. Every failure throws platform::RuntimeError.
namespace RecordFile
{

// The records in a file of that length: the length divided by the record length, rounded to
// the nearest whole number with ties to even. Past the 16-bit count that the formats allow it
// throws the overflow error.
std::int16_t Count(qint64 fileLength, int recordLength);

// An open record file, read record by record.
class Reader
{
public:
    Reader(const QString& fileName, int recordLength);
    std::int16_t Count() const { return count_; }
    // Record number (from 1); a short last record comes back short.
    QByteArray Read(int number);

private:
    QFile file_;
    int recordLength_;
    std::int16_t count_ = 0;
};

// Every record of the file; an absent or empty file has none.
std::vector<QByteArray> ReadAll(const QString& fileName, int recordLength);

// Replaces the file with the records so that a failure half-way leaves the old file whole;
// no records leave no file at all.
void Replace(const QString& fileName, const std::vector<QByteArray>& records);

// The record made whole: missing text bytes read as blanks, missing number bytes as 0.
QByteArray Completed(const QByteArray& bytes, int textBytes, int recordLength);

void AppendInt16(QByteArray& bytes, std::int16_t value);
std::int16_t Int16At(const QByteArray& bytes, int offset);

} // namespace RecordFile
