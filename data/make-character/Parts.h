#pragma once

#include <QString>

namespace lumo
{

class PartLibrary;

// How an arm is held. Arms are named by the side of the picture they are on.
enum class ArmPose { Down, Half, Up, WaveHigh, WaveLow, Out, Back, Hold };
enum class Side { Left, Right };

QString armPart(Side side, ArmPose pose);
QString mouthPart(int mouthShape); // agent::acs::Mouth value

// Where the mouth sits; its images cover the closed smile so that any mouth drawn over a
// neutral face replaces it cleanly.
constexpr double mouthX = 64.0;
constexpr double mouthY = 86.0;

void addBodyParts(PartLibrary& library);
void addFaceParts(PartLibrary& library);
void addArmParts(PartLibrary& library);
void addPropParts(PartLibrary& library);
void addEffectParts(PartLibrary& library);

} // namespace lumo
