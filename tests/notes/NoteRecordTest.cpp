#include "notes/NoteRecord.h"

#include <gtest/gtest.h>

namespace
{

// The bytes of a text field as they stand on disk: the text, then blanks to the width.
QByteArray Field(const QByteArray& text, int width)
{
    return text + QByteArray(width - text.size(), ' ');
}

NoteRecord Note(const QString& name, const QString& text, NoteRow row)
{
    NoteRecord note;
    static_cast<NoteRow&>(note) = row;
    note.NoteName = name;
    note.NoteText = text;
    return note;
}

TEST(NoteRecordTest, RecordsMatchTheirBytesOnDiskBothWays)
{
    const QByteArray onceIn1998 = QByteArray::fromHex("0100"
                                                      "0000"
                                                      "0b00"
                                                      "1f00"
                                                      "ce07"
                                                      "0b00"
                                                      "3b00"
                                                      "0100");
    const QByteArray extremes = QByteArray::fromHex("0200"
                                                    "ffff"
                                                    "0080"
                                                    "ff7f"
                                                    "0000"
                                                    "0000"
                                                    "0000"
                                                    "0000");
    const struct {
        const char* what;
        NoteRecord note;
        QByteArray bytes;
    } cases[] = {
        {"full-width fields with nothing after them",
         Note(QString(50, QLatin1Char('n')), QString(500, QLatin1Char('t')),
              {1, 0, 11, 31, 1998, 11, 59, 1}),
         QByteArray(50, 'n') + QByteArray(500, 't') + onceIn1998},
        {"line breaks kept inside the text",
         Note(QStringLiteral("Dentist"), QStringLiteral("Line one\r\nLine two\r\n\r\nEnd"),
              {2, -1, -32768, 32767, 0, 0, 0, 0}),
         Field("Dentist", 50) + Field("Line one\r\nLine two\r\n\r\nEnd", 500) + extremes},
        {"the single-byte code page",
         Note(QStringLiteral("Café – naïve €5"), QStringLiteral("Grüße"),
              {1, 0, 11, 31, 1998, 11, 59, 1}),
         Field("Caf\xe9 \x96 na\xefve \x80"
               "5",
               50) +
             Field("Gr\xfc\xdf"
                   "e",
                   500) +
             onceIn1998},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        ASSERT_EQ(c.bytes.size(), NoteRecordLayout::Length);
        EXPECT_EQ(EncodeNoteRecord(c.note), c.bytes);
        EXPECT_EQ(DecodeNoteRecord(c.bytes), c.note);
    }
}

} // namespace
