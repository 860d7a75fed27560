#pragma once

// The console's release, as logged at start and shown on the status screen.
inline constexpr char kDuctlineVersion[] = "3.0.27.000";
