#include "tables/FileReplace.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fstream>
#include <random>

namespace fs = std::filesystem;

namespace {

class FileReplace : public testing::Test {
  protected:
    FileReplace() {
        std::string name = (fs::temp_directory_path() / "kiro_replace_XXXXXX").string();
        folder = mkdtemp(name.data());
        file = folder / "DXFKIRO_LINE";
        std::ofstream(file) << old;
    }
    ~FileReplace() override { fs::remove_all(folder); }

    // How many files there are: a table leaves nothing beside it.
    std::ptrdiff_t Files() const { return std::distance(fs::directory_iterator(folder), {}); }
    void ExpectOld() const {
        EXPECT_EQ(old, ReadWholeFile(file));
        EXPECT_EQ(1, Files());
    }
    // Runs in a process of its own. True when it exited with 0.
    template <class Work>
    static bool InChild(Work work) {
        const pid_t child = fork();
        if (child == 0) _exit(work() ? 0 : 1);
        int status = 0;
        return waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
    }

    const std::string old = "the old table\n";
    fs::path folder;
    fs::path file;
};

TEST_F(FileReplace, ReplacesAndMakes) {
    fs::permissions(file, fs::perms(0640));
    EXPECT_TRUE(ReplaceWholeFile(file, std::string("new\r\n\0\x1A", 7)));
    EXPECT_EQ(std::string("new\r\n\0\x1A", 7), ReadWholeFile(file));
    EXPECT_EQ(fs::perms(0640), fs::status(file).permissions());
    EXPECT_TRUE(ReplaceWholeFile(folder / "表", ""));
    EXPECT_EQ("", ReadWholeFile(folder / "表"));
    EXPECT_EQ(2, Files());
    // What an earlier run left when it was killed is in nobody's way.
    std::ofstream(folder / "~DXFKIRO_LINE") << "a longer text that an earlier run did not finish";
    EXPECT_TRUE(ReplaceWholeFile(file, "x"));
    EXPECT_EQ("x", ReadWholeFile(file));
    EXPECT_EQ(2, Files());
}

TEST_F(FileReplace, FollowsALink) {
    const fs::path link = folder / "link";
    fs::create_symlink("DXFKIRO_LINE", link);
    EXPECT_TRUE(ReplaceWholeFile(link, "new"));
    EXPECT_TRUE(fs::is_symlink(link));
    EXPECT_EQ("new", ReadWholeFile(file));
}

TEST_F(FileReplace, RefusesWhatCannotBeReplaced) {
    EXPECT_FALSE(ReplaceWholeFile(folder, "x")) << "a folder";
    EXPECT_FALSE(ReplaceWholeFile(folder / "none" / "file", "x")) << "no such folder";
    EXPECT_FALSE(ReplaceWholeFile("", "x"));
    EXPECT_FALSE(ReadWholeFile(folder));
    EXPECT_FALSE(ReadWholeFile(folder / "none"));
    fs::permissions(file, fs::perms(0444));
    EXPECT_FALSE(ReplaceWholeFile(file, "x")) << "a read-only file";
    ExpectOld();
}

TEST_F(FileReplace, OneAtATime) {
    const int other = open((folder / "~DXFKIRO_LINE").c_str(), O_WRONLY | O_CREAT, 0600);
    ASSERT_EQ(0, flock(other, LOCK_EX));
    EXPECT_FALSE(ReplaceWholeFile(file, "x"));
    EXPECT_EQ(old, ReadWholeFile(file));
    close(other);
    EXPECT_TRUE(ReplaceWholeFile(file, "x"));
    EXPECT_EQ(1, Files());
}

TEST_F(FileReplace, FullDisk) {
    const std::string large(3 << 20, 'x');
    for (const rlim_t room : {rlim_t{0}, rlim_t{1}, rlim_t{1 << 20}, rlim_t{large.size() - 1}}) {
        EXPECT_TRUE(InChild([&] {
            const rlimit limit{room, room};
            signal(SIGXFSZ, SIG_IGN);
            return setrlimit(RLIMIT_FSIZE, &limit) == 0 && !ReplaceWholeFile(file, large);
        }));
        ExpectOld();
    }
}

// The writer is killed when the file beside has come to some size, at the rename, or soon after.
TEST_F(FileReplace, KilledAtAnyInstant) {
    const std::string tables[] = {std::string(300000, 'a'), std::string(500000, 'b')};
    ASSERT_TRUE(ReplaceWholeFile(file, tables[0]));
    std::mt19937 random(1);
    const std::string beside = folder / "~DXFKIRO_LINE";
    int unfinished = 0;
    for (int round = 0; round < 100; ++round) {
        const pid_t child = fork();
        if (child == 0) {
            for (std::size_t i = 0;; ++i) ReplaceWholeFile(file, tables[i % 2]);
        }
        const auto size = static_cast<off_t>(random() % 500000);
        struct stat status {};
        for (int look = 0; look < 20000000; ++look) {
            if (stat(beside.c_str(), &status) == 0 && status.st_size >= size) break;
        }
        kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
        unfinished += fs::exists(beside);
        const auto bytes = ReadWholeFile(file);
        ASSERT_TRUE(bytes == tables[0] || bytes == tables[1]) << round << ": " << bytes.value_or("").size();
    }
    EXPECT_GT(unfinished, 10) << "the kills came between the writes";
}

TEST_F(FileReplace, LinesOfTextMode) {
    EXPECT_EQ("", TextModeLines(""));
    EXPECT_EQ("a\r\n\r\nb", TextModeLines("a\n\nb"));
}

}  // namespace
