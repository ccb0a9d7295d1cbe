#include "fakes/Accessibility.h"

#include "agent/sheet/PropertySheet.h"
#include "commands/frmShut.h"
#include "fakes/LoadedProgram.h"
#include "info/frmAbout.h"
#include "info/frmSplash.h"

#include <gtest/gtest.h>

TEST(AccessibilityTest, EveryControlIsReachableAndNamed)
{
    fakes::LoadedProgram program;
    frmSplash splash(program.app);
    frmAbout about(program.app);
    frmShut shut(program.app);
    agent::PropertySheet sheet;
    for (QWidget* window :
         std::initializer_list<QWidget*>{&program.form(), &splash, &about, &shut, &sheet}) {
        SCOPED_TRACE(window->metaObject()->className());
        ExpectFocusableControlsNamed(*window);
    }
}
