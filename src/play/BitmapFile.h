#pragma once

#include "platform/Surface.h"

#include <string>

/// The bytes of a Windows bitmap file with 24 bits for each pixel.
std::string bitmapFile(const Surface& picture);
