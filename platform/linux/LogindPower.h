#pragma once

#include "platform/System.h"

namespace platform
{

// Asks logind on the system bus to power off (flags 1) or reboot (flags 2), with no further
// question to the user. A refusal is written to the log; the caller does not learn of it.
class LogindPower : public Power
{
public:
    void ExitWindowsEx(unsigned flags, unsigned reserved) override;
};

} // namespace platform
