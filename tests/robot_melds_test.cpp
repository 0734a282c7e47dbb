// PLACEHOLDER: the suite is being written.
#include <gtest/gtest.h>
