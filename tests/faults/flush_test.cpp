// A save that was reported as done is on the disk: a power cut right after it costs nothing.
#include <gtest/gtest.h>

#include "SystemFaults.h"
#include "files/FileBuffer.h"
#include "support/TempFolder.h"

namespace korvane::test {
namespace {

TEST(FlushTest, TheContentIsOnTheDiskBeforeTheNameAndTheNameBeforeTheAnswer) {
    const TempFolder folder;
    for (const char* when : {"new", "replaced"}) {
        TakeTrace();
        ASSERT_TRUE(SaveFile(folder.Path("file"), Bytes{1, 2, 3}));
        EXPECT_EQ(TakeTrace(), "FRD") << when;
    }
}

}  // namespace
}  // namespace korvane::test
