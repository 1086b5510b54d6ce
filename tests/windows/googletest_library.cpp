// The whole of GoogleTest in one source, without its death tests: those want handles of the threaded build.
#include <gtest/internal/gtest-port.h>

#undef GTEST_HAS_DEATH_TEST

#include "src/gtest-all.cc"
#include "src/gtest_main.cc"
