// The parts that a control is composed of.

#pragma once

#include "interaction/grid_parts.h"
