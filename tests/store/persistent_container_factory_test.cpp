// SPDX-License-Identifier: MIT
#include "store/persistent_container_factory.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>

#include "support/test_store.h"

namespace hearthmark::store {

TEST(PersistentContainerFactoryDeathTest, EndsTheProgramWithTheErrorItsDetailsAndThePlace) {
    const tests::TemporaryDirectory directory;
    std::ofstream(directory.path / "Hearthmark.sqlite") << std::string(5000, 'x');
    const base::FatalErrorHandler fatal([](auto) { std::fputs("reported", stderr); });
    EXPECT_DEATH(PersistentContainerFactory(directory.path, fatal).makeContainer(),
                 "^Hearthmark/PersistentContainerFactory:20: Fatal error: Unresolved error "
                 "file is not a database, "
                 "\\[code: 26, extendedCode: 26, statement: \"PRAGMA .*\"\\]\nreported");
}

TEST(StoreDirectory, IgnoresWhatIsNoAbsolutePath) {
    ::setenv("HOME", "/home/somebody", 1);
    ::setenv("XDG_DATA_HOME", "relative/path", 1);
    EXPECT_EQ(storeDirectory(), "/home/somebody/.local/share/Hearthmark");
    ::setenv("XDG_DATA_HOME", "/data", 1);
    EXPECT_EQ(storeDirectory(), "/data/Hearthmark");
}

}  // namespace hearthmark::store
