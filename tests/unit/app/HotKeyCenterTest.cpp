#include "app/HotKeyCenter.h"

#include "FakeDesktop.h"

#include <gtest/gtest.h>

namespace hmatnik::test {

TEST(HotKeyCenterTest, registersAtMostOncePerProcess)
{
    FakeDesktop desktop;
    HotKeyCenter::install(*desktop.hotKeys);
    HotKeyCenter::install(*desktop.hotKeys);
    EXPECT_EQ(desktop.hotKeys->registrationAttempts(), 1);
}

} // namespace hmatnik::test
