#pragma once

#include "Parts.h"

#include <QPoint>
#include <QString>
#include <QStringList>

namespace lumo
{

// What one frame shows: the character's face, arms and props, moved as a whole by `offset`,
// and effects drawn where they were drawn, over everything.
struct Pose {
    QString eyes = QStringLiteral("eyes.open");
    QString mouth = QStringLiteral("mouth.closed");
    ArmPose leftArm = ArmPose::Down;
    ArmPose rightArm = ArmPose::Down;
    QStringList props; // held in front of the body, under the hands; first on top
    QPoint offset;
    QStringList effects;
    bool visible = true;

    Pose& withEyes(const QString& part)
    {
        eyes = part;
        return *this;
    }
    Pose& withMouth(const QString& part)
    {
        mouth = part;
        return *this;
    }
    Pose& withArms(ArmPose left, ArmPose right)
    {
        leftArm = left;
        rightArm = right;
        return *this;
    }
    Pose& holding(const QStringList& parts)
    {
        props = parts;
        return *this;
    }
    Pose& movedBy(int dx, int dy)
    {
        offset = {dx, dy};
        return *this;
    }
    Pose& with(const QStringList& parts)
    {
        effects = parts;
        return *this;
    }
};

// The empty picture, for frames where the character is not there (yet).
inline Pose nothing(const QStringList& effects = {})
{
    Pose pose;
    pose.visible = false;
    pose.effects = effects;
    return pose;
}

} // namespace lumo
