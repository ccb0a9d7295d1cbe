#pragma once

#include <QString>

struct App;

// The text without the characters of the two ignore boxes, when chkIgnore is ticked. Case
// counts, each box is taken without its surrounding spaces, and an empty box matches nothing.
QString RemoveIgnored(App& app, const QString& Text);
