// Where the guide and the set-ups that come with the program are.
#pragma once

#include <QString>

// A page of the guide in HTML, by its name with ".html": beside the program in a build tree, or
// where the package puts it. Empty if there is no such file.
QString GuidePage(const QString& name);

// The address of the guide's first page, as a browser takes it; that of the installed one if there
// is none at all.
QString GuideAddress();

// The folder of the set-ups that come with the program. Empty if there is none.
QString ShippedSetUps();
