#include "agent/acs/DecodeBudget.h"

#include "agent/acs/FormatContext.h"

namespace agent::acs
{
namespace
{

// Real characters decode to a few times their file size (a 2 MB character to about 10 MB);
// the fixed part lets small files with large, simple pictures through.
constexpr qsizetype FixedAllowance = qsizetype(64) << 20;
constexpr qsizetype PerFileByte = 64;

} // namespace

DecodeBudget::DecodeBudget(qsizetype fileSize)
    : left_(FixedAllowance + PerFileByte * fileSize), limit_(left_)
{
}

void DecodeBudget::charge(qsizetype bytes)
{
    if (bytes > left_)
        failFormat(QStringLiteral("decoded data would exceed %1 bytes, far more than the file "
                                  "could hold")
                       .arg(limit_));
    left_ -= bytes;
}

} // namespace agent::acs
