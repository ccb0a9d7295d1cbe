#pragma once

#include <QtGlobal>

namespace agent::acs
{

// Caps what a file may make the reader allocate in total. Blocks can be shared by several
// locators, and compressed data can expand a thousandfold, so per-block checks alone would
// let a small hostile file demand gigabytes.
class DecodeBudget
{
public:
    explicit DecodeBudget(qsizetype fileSize);

    // Accounts for `bytes` about to be allocated; throws FormatError when over budget.
    void charge(qsizetype bytes);

private:
    qsizetype left_;
    qsizetype limit_;
};

} // namespace agent::acs
