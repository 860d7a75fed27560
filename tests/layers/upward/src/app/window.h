#pragma once
#include "core/ground.h"
