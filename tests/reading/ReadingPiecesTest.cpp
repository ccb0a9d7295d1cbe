#include "reading/ReadingPieces.h"

#include "ReadingFixture.h"

#include <QProgressBar>
#include <gtest/gtest.h>

namespace
{

struct ReadingPiecesTest : ReadingFixture, ::testing::Test {
    // Cuts the whole text into pieces.
    QStringList pieces(const QString& text)
    {
        app.LineBuffer = text;
        QStringList result;
        while (!app.LineBuffer.isEmpty()) {
            form().ChunkText.clear();
            TakeChunk(app);
            result << form().ChunkText;
        }
        return result;
    }
};

QString Letters(int count)
{
    return QString(count, QLatin1Char('x'));
}

QString WithSpaceAt(int length, int position)
{
    QString text = Letters(length);
    text[position - 1] = QLatin1Char(' ');
    return text;
}

TEST_F(ReadingPiecesTest, TakeChunkCutsAtTheFirstSpaceAfter180OrAt200)
{
    struct Case {
        const char* name;
        QString text;
        QList<int> lengths;
    };
    const Case cases[] = {
        {"exactly 200", Letters(200), {200}},
        {"exactly 200, spaces early", WithSpaceAt(200, 50), {200}},
        {"201 without space", Letters(201), {200, 1}},
        {"201, space at 185", WithSpaceAt(201, 185), {185, 16}},
        {"201, space at 181", WithSpaceAt(201, 181), {181, 20}},
        {"201, space at 180 is too early", WithSpaceAt(201, 180), {200, 1}},
        {"201, space at 200", WithSpaceAt(201, 200), {200, 1}},
        {"195 with a space at 190", WithSpaceAt(195, 190), {190, 5}},
        {"short rest", Letters(7), {7}},
    };
    for (const Case& c : cases) {
        QList<int> lengths;
        QString joined;
        for (const QString& piece : pieces(c.text)) {
            lengths << int(piece.size());
            joined += piece;
        }
        EXPECT_EQ(lengths, c.lengths) << c.name;
        EXPECT_EQ(joined, c.text) << c.name;
    }
}

TEST_F(ReadingPiecesTest, TextWithoutSpacesLosesAndRepeatsNothing)
{
    QString text;
    for (int i = 0; i < 1234; ++i)
        text += QChar(u'a' + i % 26);
    const QStringList cut = pieces(text);
    ASSERT_EQ(cut.size(), 7);
    for (qsizetype i = 0; i + 1 < cut.size(); ++i)
        EXPECT_EQ(cut[i].size(), 200);
    EXPECT_EQ(cut.join(QString()), text);
}

TEST_F(ReadingPiecesTest, ScaleProgress)
{
    struct Case {
        qint64 length;
        int margin;
        int maximum;
        float scale;
    };
    const Case cases[] = {
        // An empty source keeps a range, so that the bar stays empty instead of busy.
        {0, 1, 1, 1.0f},
        {32700, 1, 32700, 1.0f},
        {32701, 1, 32701, 32700.0f / 32701.0f},
        {40000, 1, 32701, 0.8175f},
        {40000, 10, 32710, 0.8175f},
        // The scale, rounded to a 32-bit float, falls a hair short for this length.
        {100000000, 1, 32700, 0.000327f},
    };
    for (const Case& c : cases) {
        ScaleProgress(app, c.length, c.margin);
        EXPECT_EQ(form().ProgressBar1->maximum(), c.maximum) << c.length;
        EXPECT_FLOAT_EQ(app.ProgressScale, c.scale) << c.length;
    }
}

TEST_F(ReadingPiecesTest, AdvanceProgressStopsAtTheMaximum)
{
    form().ProgressBar1->setMaximum(500);
    app.ProgressScale = 2.0f;
    app.ProgressPos = 0.0f;
    const struct {
        int chunk;
        float pos;
        int value;
    } steps[] = {{100, 200.0f, 200}, {120, 440.0f, 440}, {100, 640.0f, 500}, {0, 640.0f, 500}};
    for (const auto& step : steps) {
        form().ChunkText = Letters(step.chunk);
        AdvanceProgress(app);
        EXPECT_FLOAT_EQ(app.ProgressPos, step.pos);
        EXPECT_EQ(form().ProgressBar1->value(), step.value);
    }
}

} // namespace
