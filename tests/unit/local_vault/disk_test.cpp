// What the disk does while other programs have its files open.
#include "disk_world.h"

#include "vault/disk.h"
#include "vault/error_table.h"

#include <chrono>
#include <fstream>
#include <thread>

namespace tv::local {

namespace {

namespace fs = std::filesystem;

/// Has a file open for reading, as another program would that looks at it, for a moment or until the end.
class Reader
{
  public:
    explicit Reader(const fs::path& path) : file(path, std::ios::binary) {}
    ~Reader()
    {
        if (thread.joinable()) {
            thread.join();
        }
    }

    void LeaveSoon()
    {
        thread = std::thread([this] {
            std::this_thread::sleep_for(std::chrono::milliseconds(50));
            file.close();
        });
    }

  private:
    std::ifstream file;
    std::thread thread;
};

class DiskWithReaders : public DiskWorld
{
  protected:
    const Disk disk{{}};
    const fs::path present = Write("present.txt", "present");
    const fs::path next = Write("next.txt", "next");
};

TEST_F(DiskWithReaders, AFileThatIsReadIsReplacedWhenTheReaderIsDone)
{
    Reader reader(present);
    reader.LeaveSoon();
    disk.Replace(next, present);
    EXPECT_EQ(BytesOf(present), "next");
    EXPECT_FALSE(fs::exists(next));
}

TEST_F(DiskWithReaders, AReadOnlyFileThatIsReadIsReplacedWhenTheReaderIsDone)
{
    disk.SetReadOnly(present, true);
    Reader reader(present);
    reader.LeaveSoon();
    disk.Replace(next, present);
    EXPECT_EQ(BytesOf(present), "next");
}

TEST_F(DiskWithReaders, AFileThatIsReadIsRemovedWhenTheReaderIsDone)
{
    Reader reader(present);
    reader.LeaveSoon();
    disk.Remove(present);
    EXPECT_FALSE(fs::exists(present));
}

TEST_F(DiskWithReaders, AFileThatIsMissingIsRemovedWithoutAWord)
{
    disk.Remove(Folder("missing.txt"));
    EXPECT_TRUE(fs::exists(present));
}

TEST_F(DiskWithReaders, AMissingFileReplacesNothing)
{
    EXPECT_EQ(CodeOf([&] { disk.Replace(Folder("missing.txt"), present); }), kErrorIo);
    EXPECT_EQ(BytesOf(present), "present");
}

#ifdef _WIN32
// Elsewhere a file can be replaced and removed while it is read.

TEST_F(DiskWithReaders, AFileWhoseReaderDoesNotEndIsNotReplacedAndBothFilesStay)
{
    const Reader reader(present);
    EXPECT_EQ(WordsOf([&] { disk.Replace(next, present); }),
              "Writing '" + TextOf(present) + "' failed: access is denied, or another program has it open.");
    EXPECT_EQ(BytesOf(present), "present");
    EXPECT_EQ(BytesOf(next), "next");
}

TEST_F(DiskWithReaders, AFileWhoseReaderDoesNotEndIsNotRemoved)
{
    const Reader reader(present);
    EXPECT_EQ(WordsOf([&] { disk.Remove(present); }),
              "Removing '" + TextOf(present) + "' failed: another program has it open.");
    EXPECT_EQ(BytesOf(present), "present");
}
#endif

} // namespace

} // namespace tv::local
