#pragma once

#include <QString>

// The logo on the report's front page: the user's own, fitted to the page's logo
// box as "/opt/hbi/logo_resize.png", or the default picture's name when there is none.
QString fittedUserLogo();
