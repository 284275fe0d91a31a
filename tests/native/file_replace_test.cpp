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

#include "tables/ErrorList.h"
#include "tables/FileBeside.h"

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

    static std::uint32_t Process() { return static_cast<std::uint32_t>(getpid()); }
    void Write(const std::string& name, const std::string& bytes) const { std::ofstream(folder / name) << bytes; }
    // The name that comes after another one.
    static std::string After(const std::string& name) {
        char text[32];
        std::snprintf(text, sizeof text, "~kiro-%08lx.tmp", std::stoul(name.substr(6, 8), nullptr, 16) + 1);
        return text;
    }
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
        return EndsWell(child);
    }
    static bool EndsWell(pid_t child) {
        int status = 0;
        return waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
    }

    // How much of a table has been written beside it; -1: nothing is.
    off_t SizeBeside() const {
        std::error_code gone;
        for (const auto& entry : fs::directory_iterator(folder))
            if (entry.path() != file) return static_cast<off_t>(entry.file_size(gone));
        return -1;
    }

    const std::string old = "the old table\n";
    fs::path folder;
    fs::path file;
};

TEST_F(FileReplace, PiecesTakeItsPlaceAtOnceOrNotAtAll) {
    const std::string large(std::size_t{3} << 20, 'x');
    for (const bool ends : {false, true}) {
        FileReplacement pieces(file);
        for (const std::string& piece : {std::string("a"), large, std::string("b")}) EXPECT_TRUE(pieces.Write(piece));
        EXPECT_EQ(old, ReadWholeFile(file));
        EXPECT_EQ(ends, ends && pieces.TakePlace());
    }
    EXPECT_TRUE(ReadWholeFile(file) == "a" + large + "b");
    EXPECT_EQ(1, Files());
}

TEST_F(FileReplace, ReplacesAndMakes) {
    fs::permissions(file, fs::perms(0640));
    EXPECT_TRUE(ReplaceWholeFile(file, std::string("new\r\n\0\x1A", 7)));
    EXPECT_EQ(std::string("new\r\n\0\x1A", 7), ReadWholeFile(file));
    EXPECT_EQ(fs::perms(0640), fs::status(file).permissions());
    EXPECT_TRUE(ReplaceWholeFile(folder / "表", ""));
    EXPECT_EQ("", ReadWholeFile(folder / "表"));
    EXPECT_EQ(2, Files());
}

// What an operator keeps beside a table is none of ours, nor is what only looks like a leftover.
TEST_F(FileReplace, LeavesAloneWhatIsNotOurs) {
    Write("mine", "mine");
    const char* const names[] = {"~DXFKIRO_LINE",       "~DXFKIRO_LINE.tmp",   "~kiro-0000000G.tmp",
                                 "~kiro-0000001.tmp",   "~kiro-000000001.tmp", "~kiro-00000001.tmp~",
                                 "a~kiro-00000001.tmp", "~kiro-00000001.TMP"};
    for (const char* name : names) Write(name, "own");
    // Links that lie where a leftover may be, and under the names that come next.
    fs::create_symlink("mine", folder / "~kiro-00000002.tmp");
    fs::create_directory(folder / "~kiro-00000003.tmp");
    std::string next = NameBeside(Process());
    for (int i = 0; i < 3; ++i) fs::create_symlink("mine", folder / (next = After(next)));
    const std::ptrdiff_t files = Files();
    EXPECT_TRUE(ReplaceWholeFile(file, "new"));
    EXPECT_EQ("new", ReadWholeFile(file));
    for (const char* name : names) EXPECT_EQ("own", ReadWholeFile(folder / name)) << name;
    EXPECT_EQ("mine", ReadWholeFile(folder / "mine"));
    EXPECT_EQ(files, Files());
}

TEST_F(FileReplace, RemovesWhatDeadWritersLeft) {
    Write("~kiro-00000001.tmp", "a text that an earlier run did not finish");
    Write("~kiro-fedcba98.tmp", "");
    const int living = open((folder / "~kiro-fedcba98.tmp").c_str(), O_WRONLY);
    ASSERT_EQ(0, flock(living, LOCK_EX));
    EXPECT_TRUE(ReplaceWholeFile(file, "x"));
    EXPECT_EQ(2, Files()) << "one of them is still being written";
    close(living);
    EXPECT_TRUE(ReplaceWholeFile(folder / "another", "x"));
    EXPECT_EQ(2, Files()) << "the two tables";
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

TEST_F(FileReplace, TwoAtOnce) {
    const auto writeMany = [this](char letter) {
        const std::string table(100000, letter);
        for (int i = 0; i < 30; ++i) {
            if (!ReplaceWholeFile(file, table)) return false;
            const auto bytes = ReadWholeFile(file);
            if (!bytes || *bytes != std::string(table.size(), (*bytes)[0])) return false;
        }
        return true;
    };
    const pid_t other = fork();
    if (other == 0) _exit(writeMany('b') ? 0 : 1);
    EXPECT_TRUE(writeMany('a'));
    EXPECT_TRUE(EndsWell(other));
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
    int unfinished = 0;
    for (int round = 0; round < 100; ++round) {
        const pid_t child = fork();
        if (child == 0) {
            for (std::size_t i = 0;; ++i) ReplaceWholeFile(file, tables[i % 2]);
        }
        const auto size = static_cast<off_t>(random() % 500000);
        for (int look = 0; look < 20000000 && SizeBeside() < size; ++look) continue;
        kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
        ASSERT_LE(Files(), 2);
        unfinished += Files() == 2;
        RemoveLeftovers(folder / "");  // or the next round would take it for its own
        ASSERT_EQ(1, Files());
        const auto bytes = ReadWholeFile(file);
        ASSERT_TRUE(bytes == tables[0] || bytes == tables[1]) << round << ": " << bytes.value_or("").size();
    }
    EXPECT_GT(unfinished, 10) << "the kills came between the writes";
}

TEST_F(FileReplace, ErrorListSaysWhetherItIsWhole) {
    ErrorList list;
    const auto print = [&list](const SystemPath& path, std::size_t bad) {
        list.OpenErrorList(path);
        TableListing listing(list);
        listing.FileName("T");
        for (std::size_t line = 1; line <= 9; ++line) {
            listing.Line("x\n", line);
            if (line > 9 - bad) listing.Error(" ***** 書式が違います *****       COLOR  %d\n", 7);
        }
        list.CloseErrorList();
        return list.IsWhole();
    };
    EXPECT_TRUE(print(file, 1));
    const std::string lines = "    x\n    x\n    x\n    x\n    x\n    x\n    x\n    x\n    x\n";
    EXPECT_EQ("\nFile Name : T\n\n" + lines + " ***** 書式が違います *****       COLOR  7\n", ReadWholeFile(file));
    EXPECT_FALSE(print("/dev/full", 7));
    std::string errors;
    for (const char* line : {"3", "4", "5", "6", "7"}) errors += line + std::string(" 行目：書式が違います COLOR 7\n");
    EXPECT_EQ(errors + "ほか 2 件\n", list.FirstErrors());
    EXPECT_FALSE(print(folder, 1)) << "a folder";
    EXPECT_EQ("9 行目：書式が違います COLOR 7\n", list.FirstErrors());
    EXPECT_FALSE(print("", 0));
    EXPECT_EQ("", list.FirstErrors());
    // A message with a long text of the file is cut, and no character of it in two.
    list.OnError(std::string(99, 'x') + "表");
    EXPECT_EQ("9 行目：" + std::string(99, 'x') + "\n", list.FirstErrors());
}

TEST_F(FileReplace, LinesOfTextMode) {
    EXPECT_EQ("", TextModeLines(""));
    EXPECT_EQ("a\r\n\r\nb", TextModeLines("a\n\nb"));
}

}  // namespace
