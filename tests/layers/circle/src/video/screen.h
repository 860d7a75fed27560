#pragma once
// Across one floor is allowed, but not both ways.
#include "survey/manager.h"
