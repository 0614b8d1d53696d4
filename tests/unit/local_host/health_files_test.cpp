#include "host_world.h"

#include "host/health_files.h"

namespace tv::local {

namespace {

using HealthFiles = HostWorld;

TEST_F(HealthFiles, AFolderThatWasTriedHoldsNothingNew)
{
    Write("folder/a.txt", "a");
    EXPECT_EQ(TryFolderByFile(TextOf(Folder("folder"))), FolderState::Writable);
    const std::filesystem::directory_iterator entries(Folder("folder"));
    EXPECT_EQ(std::distance(begin(entries), end(entries)), 1);
}

TEST_F(HealthFiles, AFolderThatIsNotThereAndAFileInItsPlaceAreToldApart)
{
    EXPECT_EQ(TryFolderByFile(TextOf(Folder("none"))), FolderState::Missing);
    EXPECT_GT(FreeBytesOf(TextOf(Folder(""))).value_or(0), 0u);
    EXPECT_EQ(TryFolderByFile(Write("file", "a")), FolderState::NoFolder);
}

#ifndef _WIN32
TEST_F(HealthFiles, AFolderThatRefusesFilesIsTold)
{
    // Nobody can make a file there, whatever his rights.
    EXPECT_EQ(TryFolderByFile("/proc"), FolderState::Refused);
}
#endif

TEST_F(HealthFiles, FilesAreFoundByBothEndsOfTheirNames)
{
    for (const char* name :
         {"temp/TFR2.tvb", "temp/tfr1.TVB", "temp/TFR3.tmp", "temp/XTFR.tvb", "temp/below/TFR4.tvb", "temp/TFR.tv"}) {
        Write(name, "a");
    }
    std::vector<std::string> names;
    for (const FoundFile& file : FilesBetween(TextOf(Folder("temp")), "TFR", ".tvb")) {
        names.push_back(TextOf(PathOf(file.path).filename()));
        EXPECT_LT(file.age, std::chrono::hours(1));
    }
    EXPECT_EQ(names, (std::vector<std::string>{"TFR2.tvb", "tfr1.TVB"}));
    EXPECT_TRUE(FilesBetween(TextOf(Folder("none")), "TFR", ".tvb").empty());
}

TEST_F(HealthFiles, TheAgeOfAFileCountsFromWhenItWasWritten)
{
    const std::string path = Write("temp/TFR1.tvb", "a");
    std::filesystem::last_write_time(Folder("temp/TFR1.tvb"),
                                     std::filesystem::file_time_type::clock::now() - std::chrono::hours(30));
    const auto files = FilesBetween(TextOf(Folder("temp")), "TFR", ".tvb");
    ASSERT_EQ(files.size(), 1u);
    EXPECT_GE(files[0].age, std::chrono::hours(30));
    EXPECT_LT(files[0].age, std::chrono::hours(31));
}

} // namespace

} // namespace tv::local
