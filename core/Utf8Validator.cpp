#include "core/Utf8Validator.h"

void Utf8Validator::feed(const char* data, std::size_t size)
{
    for (std::size_t i = 0; i < size && !failed_; ++i) {
        const auto byte = static_cast<unsigned char>(data[i]);
        if (pending_ > 0) {
            if (byte < low_ || byte > high_) {
                failed_ = true;
                return;
            }
            --pending_;
            low_ = 0x80;
            high_ = 0xBF;
            continue;
        }
        if (byte < 0x80)
            continue;
        // The bounds on the first continuation byte rule out overlong forms, surrogates and
        // code points past U+10FFFF.
        if (byte >= 0xC2 && byte <= 0xDF) {
            pending_ = 1;
        } else if (byte >= 0xE0 && byte <= 0xEF) {
            pending_ = 2;
            if (byte == 0xE0)
                low_ = 0xA0;
            else if (byte == 0xED)
                high_ = 0x9F;
        } else if (byte >= 0xF0 && byte <= 0xF4) {
            pending_ = 3;
            if (byte == 0xF0)
                low_ = 0x90;
            else if (byte == 0xF4)
                high_ = 0x8F;
        } else {
            failed_ = true;
        }
    }
}
