#include "reading/ReadingPieces.h"

#include "ReadingFixture.h"
#include "reading/RemoveIgnored.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QProgressBar>
#include <gtest/gtest.h>

// Cutting texts into pieces, the progress bar, and the removal of ignored characters.
struct ReadingPiecesTest : ReadingFixture, ::testing::Test {
    // The lengths of the pieces the whole text is cut into; the pieces must join to it.
    QList<int> pieces(const QString& text)
    {
        app.LineBuffer = text;
        QList<int> lengths;
        QString joined;
        while (!app.LineBuffer.isEmpty()) {
            form().ChunkText.clear();
            TakeChunk(app);
            lengths << int(form().ChunkText.size());
            joined += form().ChunkText;
        }
        EXPECT_EQ(joined, text);
        return lengths;
    }
};

QString WithSpaceAt(int length, int position)
{
    QString text(length, 'x');
    text[position - 1] = ' ';
    return text;
}

TEST_F(ReadingPiecesTest, TakeChunkCutsAtTheFirstSpaceAfter180OrAt200)
{
    QString letters;
    for (int i = 0; i < 1234; ++i)
        letters += QChar(u'a' + i % 26);
    const struct {
        const char* name;
        QString text;
        QList<int> lengths;
    } cases[] = {
        {"exactly 200", QString(200, 'x'), {200}},
        {"exactly 200, spaces early", WithSpaceAt(200, 50), {200}},
        {"201, space at 181", WithSpaceAt(201, 181), {181, 20}},
        {"201, space at 180 is too early", WithSpaceAt(201, 180), {200, 1}},
        {"201, space at 200", WithSpaceAt(201, 200), {200, 1}},
        {"195 with a space at 190", WithSpaceAt(195, 190), {190, 5}},
        {"short rest", QString(7, 'x'), {7}},
        {"no spaces at all", letters, {200, 200, 200, 200, 200, 200, 34}},
    };
    for (const auto& c : cases)
        EXPECT_EQ(pieces(c.text), c.lengths) << c.name;
}

TEST_F(ReadingPiecesTest, ScaleAndAdvanceProgress)
{
    const struct {
        qint64 length;
        int margin, maximum;
        float scale;
    } cases[] = {
        // An empty source keeps a range, so that the bar stays empty instead of busy.
        {0, 1, 1, 1.0f},
        {32700, 1, 32700, 1.0f},
        {32701, 1, 32701, 32700.0f / 32701.0f},
        {40000, 1, 32701, 0.8175f},
        {40000, 10, 32710, 0.8175f},
        // The scale, rounded to a 32-bit float, falls a hair short for this length.
        {100000000, 1, 32700, 0.000327f},
    };
    for (const auto& c : cases) {
        ScaleProgress(app, c.length, c.margin);
        EXPECT_EQ(form().ProgressBar1->maximum(), c.maximum) << c.length;
        EXPECT_FLOAT_EQ(app.ProgressScale, c.scale) << c.length;
    }

    form().ProgressBar1->setMaximum(500);
    app.ProgressScale = 2.0f;
    app.ProgressPos = 0.0f;
    const struct {
        int chunk;
        float pos;
        int value;
    } steps[] = {{100, 200.0f, 200}, {120, 440.0f, 440}, {100, 640.0f, 500}, {0, 640.0f, 500}};
    for (const auto& step : steps) {
        form().ChunkText = QString(step.chunk, 'x');
        AdvanceProgress(app);
        EXPECT_FLOAT_EQ(app.ProgressPos, step.pos);
        EXPECT_EQ(form().ProgressBar1->value(), step.value);
    }
}

TEST_F(ReadingPiecesTest, RemoveIgnored)
{
    const struct {
        const char* name;
        bool on;
        QString first, second, text, result;
    } cases[] = {
        {"box cleared keeps everything", false, ">", "*", "> a * b", "> a * b"},
        {"the two default characters", true, ">", "*", "> a * b >>", " a  b "},
        {"a and A drop both cases", true, "a", "A", "Aa banana", " bnn"},
        {"a alone keeps A", true, "a", "", "Aa banana", "A bnn"},
        {"empty boxes match nothing", true, "", "", "any text", "any text"},
        {"a space box is empty", true, " ", "", "a b", "a b"},
        {"empty text", true, "a", "b", "", ""},
    };
    for (const auto& c : cases) {
        form().chkIgnore->setChecked(c.on);
        form().txtIgnore->setText(c.first);
        form().txtIgnore1->setText(c.second);
        const QString text = c.text;
        EXPECT_EQ(RemoveIgnored(app, text), c.result) << c.name;
        EXPECT_EQ(text, c.text) << c.name << ": the argument changed";
    }

    // A long text is filtered past the points where the event queue runs.
    form().chkIgnore->setChecked(true);
    form().txtIgnore->setText("*");
    form().txtIgnore1->setText("");
    QString text, expected;
    for (int i = 0; i < 3000; ++i) {
        text += i % 7 == 0 ? QChar('*') : QChar('a' + i % 26);
        if (i % 7 != 0)
            expected += QChar('a' + i % 26);
    }
    EXPECT_EQ(RemoveIgnored(app, text), expected);
}
