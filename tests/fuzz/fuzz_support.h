// Shared ground for the fuzz targets: the scripted platform, quiet, files held in memory, and a
// way to stop with a reason when an invariant breaks.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <string>

#include "form/recording_platform.h"
#include "support/memory_files.h"

// An invariant that does not hold: libFuzzer keeps the input that led here.
[[noreturn]] inline void Broken(const std::string& what) {
  std::fprintf(stderr, "invariant broken: %s\n", what.c_str());
  std::abort();
}

inline void Require(bool holds, const std::string& what) {
  if (!holds) Broken(what);
}
