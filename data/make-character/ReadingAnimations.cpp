#include "AnimationBuilder.h"
#include "Animations.h"

namespace lumo
{

using agent::acs::Transition;

namespace
{

const QStringList closedBook{QStringLiteral("book.closed")};
const QStringList openBook{QStringLiteral("book.open")};
const QString down = QStringLiteral("eyes.down");

Pose holdingBook(const QStringList& book)
{
    return Pose().withArms(ArmPose::Hold, ArmPose::Hold).holding(book);
}

// Read ends holding the open book and keeps it: the program plays ReadReturn itself, and
// exiting towards neutral first would make the book vanish and reappear in between.
agent::acs::Animation read(const PartLibrary& library)
{
    AnimationBuilder read(library, QStringLiteral("Read"), Transition::None);
    const int taken = read.frame(holdingBook(closedBook), 8);
    const int opened = read.frame(holdingBook(openBook), 6);
    read.speakingFrame(holdingBook(openBook).withEyes(down), 10);
    const int end = read.endFrame();
    read.exitTo(opened, taken);
    read.exitTo(taken, end);
    return read.take();
}

agent::acs::Animation readContinued(const PartLibrary& library)
{
    AnimationBuilder turn(library, QStringLiteral("ReadContinued"), Transition::None);
    for (const char* page : {"book.turn1", "book.turn2", "book.turn3"})
        turn.frame(holdingBook({QLatin1String(page), openBook.front()}).withEyes(down), 6);
    const int reading = turn.speakingFrame(holdingBook(openBook).withEyes(down), 10);
    turn.exitAllTo(reading);
    return turn.take();
}

agent::acs::Animation readReturn(const PartLibrary& library)
{
    const QString happy = QStringLiteral("eyes.happy");
    AnimationBuilder done(library, QStringLiteral("ReadReturn"), Transition::None);
    done.frame(holdingBook(openBook), 6);
    done.frame(holdingBook(closedBook).withEyes(happy), 8);
    done.frame(Pose().withEyes(happy).withArms(ArmPose::Half, ArmPose::Half), 6);
    const int neutral = done.frame(Pose(), 10);
    done.exitAllTo(neutral);
    return done.take();
}

} // namespace

Animations readingAnimations(const PartLibrary& library)
{
    Animations animations;
    animations.push_back(read(library));
    animations.push_back(readContinued(library));
    animations.push_back(readReturn(library));
    return animations;
}

} // namespace lumo
