#include "fakes/Accessibility.h"

#include "agent/sheet/PropertySheet.h"
#include "commands/frmShut.h"
#include "fakes/LoadedProgram.h"
#include "info/frmAbout.h"
#include "info/frmSplash.h"

#include <gtest/gtest.h>

namespace
{

struct AccessibilityTest : ::testing::Test, fakes::LoadedProgram {
};

TEST_F(AccessibilityTest, EveryControlIsReachableAndNamed)
{
    {
        SCOPED_TRACE("frmMain with the voice panel");
        ExpectFocusableControlsNamed(form());
    }
    {
        SCOPED_TRACE("frmSplash");
        frmSplash splash(app);
        ExpectFocusableControlsNamed(splash);
    }
    {
        SCOPED_TRACE("frmAbout");
        frmAbout about(app);
        ExpectFocusableControlsNamed(about);
    }
    {
        SCOPED_TRACE("frmShut");
        frmShut shut(app);
        ExpectFocusableControlsNamed(shut);
    }
    {
        SCOPED_TRACE("the engine's property sheet");
        agent::PropertySheet sheet;
        ExpectFocusableControlsNamed(sheet);
    }
}

} // namespace
