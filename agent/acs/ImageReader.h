#pragma once

#include "agent/acs/ByteReader.h"
#include "agent/acs/CharacterData.h"
#include "agent/acs/DecodeBudget.h"

namespace agent::acs
{

// Reads and decompresses one image record. Records shorter than 10 bytes or with a clear
// present flag are placeholders and come back as empty images.
Image readImage(QByteArrayView file, Locator record, DecodeBudget& budget);

} // namespace agent::acs
