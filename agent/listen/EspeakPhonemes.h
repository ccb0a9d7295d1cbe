#pragma once

#include <QString>

namespace agent::listen
{

// Turns espeak-ng's phoneme mnemonics for US English (the output of "espeak-ng -x", one
// phoneme per blank-separated token, stress marks in front) into CMU phones as the acoustic
// model knows them, e.g. "g 'I m p" -> "G IH M P". Unknown tokens are dropped; an empty
// result means no usable pronunciation.
QString espeakToCmu(const QString& espeakPhonemes);

} // namespace agent::listen
