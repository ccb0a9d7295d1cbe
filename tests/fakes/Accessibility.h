#pragma once

class QWidget;

// Fails the running test for any control of the window that takes the focus but cannot be
// reached with Tab, has no accessible name (as a screen reader reads it) or only its group's
// title, or shares its name with a sibling. A slider must also offer its value.
void ExpectFocusableControlsNamed(QWidget& window);
