#pragma once
#include "core/paths.h"
#include "video/screen.h"
