// SPDX-License-Identifier: MIT
#include "store/persistent_container_factory.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace hearthmark::store {

TEST(StoreDirectory, IgnoresWhatIsNoAbsolutePath) {
    ::setenv("HOME", "/home/somebody", 1);
    ::setenv("XDG_DATA_HOME", "relative/path", 1);
    EXPECT_EQ(storeDirectory(), "/home/somebody/.local/share/Hearthmark");
    ::setenv("XDG_DATA_HOME", "/data", 1);
    EXPECT_EQ(storeDirectory(), "/data/Hearthmark");
}

}  // namespace hearthmark::store
