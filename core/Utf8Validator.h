#pragma once

#include <cstddef>

// Decides whether a byte stream is well-formed UTF-8, fed in blocks of any size, so that a
// file of any length can be checked without holding it. Overlong forms, surrogates and code
// points above U+10FFFF count as malformed, as does a sequence cut off at the end.
class Utf8Validator
{
public:
    void feed(const char* data, std::size_t size);
    bool valid() const { return !failed_ && pending_ == 0; }
    bool failed() const { return failed_; }

private:
    bool failed_ = false;
    int pending_ = 0;          // continuation bytes still expected
    unsigned char low_ = 0x80; // allowed range of the next continuation byte
    unsigned char high_ = 0xBF;
};
