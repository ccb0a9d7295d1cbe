#pragma once

#include "agent/acs/CharacterData.h"

#include <QByteArrayView>

namespace agent::speech
{

// The mouth for one of espeak-ng's phoneme names (its own ASCII names, not IPA): closed for
// m, b, p and silence, wide by how open the sound is, medium for o-like vowels, narrow for
// rounded ones such as oo and w.
acs::Mouth mouthForPhoneme(QByteArrayView phoneme);

} // namespace agent::speech
