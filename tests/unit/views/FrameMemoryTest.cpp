#include "views/FrameMemory.h"

#include <gtest/gtest.h>

namespace hmatnik::test {

namespace {

const QRect placed(300, 200, 1100, 720);
const QRect screen(0, 0, 1920, 1200);

FrameMemory atRest()
{
    FrameMemory memory;
    memory.rested(placed, Qt::WindowNoState);
    return memory;
}

} // namespace

TEST(FrameMemoryTest, followsAWindowThatIsMoved)
{
    FrameMemory memory(placed);
    EXPECT_EQ(memory.normal(), placed);
    memory.moved(placed.translated(10, 0), Qt::WindowNoState);
    EXPECT_EQ(memory.normal(), placed.translated(10, 0)) << "at once, closing does not wait";
    EXPECT_EQ(memory.filling(), Qt::WindowNoState);
}

TEST(FrameMemoryTest, aMaximisedWindowKeepsItsNormalFrame)
{
    FrameMemory memory = atRest();
    memory.changed(Qt::WindowMaximized);
    memory.moved(screen, Qt::WindowMaximized);
    memory.rested(screen, Qt::WindowMaximized);
    EXPECT_EQ(memory.filling(), Qt::WindowMaximized);
    EXPECT_EQ(memory.normal(), placed);
}

TEST(FrameMemoryTest, soItDoesWhenTheSizeIsToldBeforeTheState)
{
    FrameMemory memory = atRest();
    memory.moved(screen, Qt::WindowNoState);
    memory.changed(Qt::WindowMaximized);
    memory.rested(screen, Qt::WindowMaximized);
    EXPECT_EQ(memory.normal(), placed);
}

TEST(FrameMemoryTest, andWhenTheStateGoesBeforeTheSize)
{
    FrameMemory memory = atRest();
    memory.changed(Qt::WindowMaximized);
    memory.rested(screen, Qt::WindowMaximized);
    memory.changed(Qt::WindowNoState);
    memory.moved(placed, Qt::WindowNoState);
    memory.rested(placed, Qt::WindowNoState);
    EXPECT_EQ(memory.filling(), Qt::WindowNoState);
    EXPECT_EQ(memory.normal(), placed);
}

TEST(FrameMemoryTest, aMinimisedWindowComesBackAsItWas)
{
    FrameMemory memory = atRest();
    memory.changed(Qt::WindowMaximized);
    memory.changed(Qt::WindowMaximized | Qt::WindowMinimized);
    EXPECT_EQ(memory.filling(), Qt::WindowMaximized);
    memory.changed(Qt::WindowMinimized);
    EXPECT_EQ(memory.filling(), Qt::WindowMaximized) << "some managers forget it meanwhile";
    memory.moved(screen, Qt::WindowMinimized);
    EXPECT_EQ(memory.normal(), placed);
}

TEST(FrameMemoryTest, soItDoesWhenItIsMadeNormalOnTheWay)
{
    for (const Qt::WindowStates left :
         {Qt::WindowStates(Qt::WindowMaximized), Qt::WindowStates()}) {
        FrameMemory memory = atRest();
        memory.changed(Qt::WindowMaximized);
        memory.rested(screen, Qt::WindowMaximized);
        memory.changed(Qt::WindowNoState);
        memory.moved(screen, Qt::WindowNoState);
        memory.changed(Qt::WindowMinimized);
        memory.changed(Qt::WindowMinimized | left);
        memory.rested(screen, Qt::WindowMinimized | left);
        EXPECT_EQ(memory.filling(), Qt::WindowMaximized);
        EXPECT_EQ(memory.normal(), placed);
    }
}

TEST(FrameMemoryTest, aNormalWindowStaysOneWhileItIsMinimised)
{
    FrameMemory memory = atRest();
    memory.changed(Qt::WindowMaximized);
    memory.rested(screen, Qt::WindowMaximized);
    memory.changed(Qt::WindowNoState);
    memory.rested(placed, Qt::WindowNoState);
    memory.changed(Qt::WindowMinimized);
    memory.rested(placed, Qt::WindowMinimized);
    EXPECT_EQ(memory.filling(), Qt::WindowNoState);
    EXPECT_EQ(memory.normal(), placed);
}

TEST(FrameMemoryTest, fullScreenCountsToo)
{
    FrameMemory memory = atRest();
    memory.changed(Qt::WindowFullScreen | Qt::WindowMaximized);
    memory.rested(screen, Qt::WindowFullScreen | Qt::WindowMaximized);
    EXPECT_EQ(memory.filling(), Qt::WindowFullScreen | Qt::WindowMaximized);
    memory.changed(Qt::WindowMaximized);
    EXPECT_EQ(memory.filling(), Qt::WindowMaximized);
    EXPECT_EQ(memory.normal(), placed);
}

TEST(FrameMemoryTest, halfAScreenIsAFrameLikeAnyOther)
{
    FrameMemory memory = atRest();
    const QRect half(0, 0, 980, 1200);
    memory.rested(half, Qt::WindowNoState);
    EXPECT_EQ(memory.normal(), half);
}

TEST(FrameMemoryTest, knowsWhatWasKeptFromAnEarlierRun)
{
    FrameMemory memory(placed, Qt::WindowMaximized);
    memory.rested(screen, Qt::WindowMaximized);
    EXPECT_EQ(memory.normal(), placed);
    memory.place(placed.translated(-100, 0));
    memory.changed(Qt::WindowNoState);
    memory.changed(Qt::WindowMaximized);
    EXPECT_EQ(memory.normal(), placed.translated(-100, 0));
}

} // namespace hmatnik::test
