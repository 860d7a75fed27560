#pragma once
// The ground reaching up to the app: the check must refuse it.
#include "app/window.h"
