#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <fstream>

#include "codecs/Faults.h"
#include "codecs/modFile.h"

namespace tessarin {
namespace {

namespace fs = std::filesystem;

// An ordinary user for as long as this lives, since nothing is read-only for the system's own.
class OrdinaryUser {
 public:
  OrdinaryUser() : isRoot_(::geteuid() == 0) {
    EXPECT_EQ(::seteuid(isRoot_ ? kNobody : ::geteuid()), 0);
  }
  ~OrdinaryUser() { EXPECT_EQ(::seteuid(isRoot_ ? 0 : ::geteuid()), 0); }

 private:
  static constexpr uid_t kNobody = 65534;
  bool isRoot_;
};

// A disk that is full after `size` bytes of a file, for as long as this lives.
class FullDisk {
 public:
  explicit FullDisk(rlim_t size) : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
    ::getrlimit(RLIMIT_FSIZE, &old_);
    const rlimit limit{size, old_.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &limit);
  }
  ~FullDisk() {
    ::setrlimit(RLIMIT_FSIZE, &old_);
    std::signal(SIGXFSZ, handler_);
  }

 private:
  rlimit old_{};
  void (*handler_)(int);
};

class Variable {
 public:
  Variable(const char* name, const char* value) : name_(name) {
    if (const char* old = std::getenv(name)) old_ = old;
    ::setenv(name, value, 1);
  }
  ~Variable() { ::setenv(name_, old_.c_str(), 1); }

 private:
  const char* name_;
  std::string old_;
};

class modFileTest : public testing::Test {
 protected:
  void SetUp() override {
    std::string name = testing::TempDir() + "codecsXXXXXX";
    ASSERT_NE(::mkdtemp(name.data()), nullptr);
    folder_ = name;
    fs::permissions(folder_, fs::perms(0755));
  }
  void TearDown() override { fs::remove_all(folder_); }

  void Put(const fs::path& path, std::string_view content) {
    fs::create_directories(path.parent_path());
    std::ofstream(path) << content;
  }
  std::size_t FilesIn(const fs::path& folder) {
    return static_cast<std::size_t>(
        std::distance(fs::directory_iterator(folder), fs::directory_iterator()));
  }
  mode_t Mode(const fs::path& path) {
    struct stat found {};
    EXPECT_EQ(::stat(path.c_str(), &found), 0);
    return found.st_mode & 07777;
  }

  fs::path folder_;
  modFile files_{"/app", "/shipped"};
};

TEST_F(modFileTest, LiteralsBecomePathsBelowTheApplicationFolder) {
  EXPECT_EQ(files_.Path(u"\\Pb\\ContactTSC.dat"), "/app/Pb/ContactTSC.dat");
  EXPECT_EQ(files_.Path(u"UserData\\SMS\\"), "/app/UserData/SMS");
  EXPECT_EQ(files_.Path(u"\\Zvuky\\Žluť.mid"), "/app/Zvuky/\xC5\xBDlu\xC5\xA5.mid");
  EXPECT_EQ(files_.Path(u""), "/app");
}

TEST_F(modFileTest, OwnVersionGoesBeforeTheShippedOne) {
  const modFile files(folder_ / "app", folder_ / "share");
  Put(folder_ / "share/a.lng", "shipped");
  Put(folder_ / "share/b.lng", "shipped");
  Put(folder_ / "app/a.lng", "own");
  EXPECT_EQ(modFile::ReadWholeFile(files.ShippedPath(u"\\a.lng")), "own");
  EXPECT_EQ(modFile::ReadWholeFile(files.ShippedPath(u"\\b.lng")), "shipped");
}

TEST_F(modFileTest, DataFilesAreMadeOnceAndLeftAlone) {
  const modFile files(folder_ / "new/app", "");
  files.CheckDataFiles();
  const fs::path all[] = {"Cal/CalendarMobile.dat", "Pb/ContactTSC.dat", "Pb/ContactMobile.dat"};
  for (const auto& name : all) {
    EXPECT_EQ(modFile::ReadWholeFile(folder_ / "new/app" / name), "") << name;
  }
  Put(folder_ / "new/app/Pb/ContactTSC.dat", "0041");
  fs::remove(folder_ / "new/app/Pb/ContactMobile.dat");
  files.CheckDataFiles();
  EXPECT_EQ(modFile::ReadWholeFile(folder_ / "new/app/Pb/ContactTSC.dat"), "0041");
  EXPECT_EQ(FilesIn(folder_ / "new/app/Pb"), 2U);
}

TEST_F(modFileTest, ReadOnlyFolderRaises) {
  fs::create_directory(folder_ / "app");
  fs::permissions(folder_ / "app", fs::perms(0555));
  const OrdinaryUser user;
  try {
    modFile(folder_ / "app", "").CheckDataFiles();
    ADD_FAILURE() << "no fault";
  } catch (const FileError& fault) {
    EXPECT_EQ(fault.Reason(), std::errc::permission_denied);
    EXPECT_EQ(fault.what(), "Permission denied: " + (folder_ / "app/Cal").string());
  }
}

TEST_F(modFileTest, ExistenceTestsTellFilesFromFolders) {
  Put(folder_ / "file", "");
  fs::create_symlink("file", folder_ / "link");
  fs::create_symlink("nothing", folder_ / "dangling");
  const struct {
    fs::path path;
    bool isFile, isFolder;
  } cases[] = {{folder_, false, true},
               {folder_ / "file", true, false},
               {folder_ / "link", true, false},
               {folder_ / "dangling", false, false},
               {folder_ / "file/below", false, false},
               {"", false, false}};
  for (const auto& c : cases) {
    EXPECT_EQ(modFile::FileExists(c.path), c.isFile) << c.path;
    EXPECT_EQ(modFile::FolderExists(c.path), c.isFolder) << c.path;
  }
  EXPECT_THROW(modFile::MakeFolder(folder_ / "file"), FileError);
}

TEST_F(modFileTest, WritingKeepsBytesPermissionsAndLinks) {
  const std::string content = std::string("\0\r\n\xFF", 4) + std::string(200'000, 'x');
  Put(folder_ / "real/a.dat", "old");
  fs::permissions(folder_ / "real/a.dat", fs::perms(0640));
  fs::create_symlink("real/a.dat", folder_ / "one");
  fs::create_symlink(folder_ / "one", folder_ / "two");
  modFile::WriteWholeFile(folder_ / "two", content);
  EXPECT_TRUE(modFile::ReadWholeFile(folder_ / "real/a.dat") == content);
  EXPECT_TRUE(fs::is_symlink(folder_ / "one") && fs::is_symlink(folder_ / "two"));
  EXPECT_EQ(Mode(folder_ / "real/a.dat"), 0640U);
  EXPECT_EQ(FilesIn(folder_ / "real"), 1U);

  fs::create_symlink("real/new.dat", folder_ / "dangling");
  modFile::WriteWholeFile(folder_ / "dangling", "new");
  EXPECT_EQ(modFile::ReadWholeFile(folder_ / "real/new.dat"), "new");
  const mode_t mask = ::umask(0);
  ::umask(mask);
  EXPECT_EQ(Mode(folder_ / "real/new.dat"), 0666U & ~mask);
}

TEST_F(modFileTest, AnotherWritersNewFileIsLeftAlone) {
  const fs::path other = folder_ / (".tessarin-" + std::to_string(::getpid()) + "-0.tmp");
  Put(other, "half of");
  modFile::WriteWholeFile(folder_ / "a.dat", "mine");
  EXPECT_EQ(modFile::ReadWholeFile(other), "half of");
  EXPECT_EQ(modFile::ReadWholeFile(folder_ / "a.dat"), "mine");
}

TEST_F(modFileTest, FailedWriteLeavesTheOldFileAndNothingElse) {
  Put(folder_ / "a.dat", "old");
  const auto reasonFor = [](const fs::path& path) {
    try {
      modFile::WriteWholeFile(path, std::string(100, 'x'));
    } catch (const FileError& fault) {
      return fault.Reason();
    }
    return std::error_code();
  };
  {
    const FullDisk disk(10);
    EXPECT_EQ(reasonFor(folder_ / "a.dat"), std::errc::file_too_large);
    EXPECT_EQ(reasonFor(folder_ / "b.dat"), std::errc::file_too_large);
  }
  fs::create_directory(folder_ / "folder");
  EXPECT_EQ(reasonFor(folder_ / "folder"), std::errc::is_a_directory);
  EXPECT_EQ(reasonFor(folder_ / "none/a.dat"), std::errc::no_such_file_or_directory);
  EXPECT_EQ(reasonFor(folder_ / "a.dat/b"), std::errc::not_a_directory);
  EXPECT_EQ(reasonFor("/dev/null"), std::errc::invalid_argument);
  fs::create_symlink("loop", folder_ / "loop");
  EXPECT_EQ(reasonFor(folder_ / "loop"), std::errc::too_many_symbolic_link_levels);
  fs::permissions(folder_, fs::perms(0777));
  fs::permissions(folder_ / "a.dat", fs::perms(0444));
  {
    const OrdinaryUser user;
    EXPECT_EQ(reasonFor(folder_ / "a.dat"), std::errc::permission_denied);
  }
  EXPECT_EQ(modFile::ReadWholeFile(folder_ / "a.dat"), "old");
  EXPECT_EQ(FilesIn(folder_), 3U);  // a.dat, folder, loop
}

TEST_F(modFileTest, ReadingRaisesForWhatIsNoFile) {
  EXPECT_THROW(modFile::ReadWholeFile(folder_ / "none"), FileError);
  EXPECT_THROW(modFile::ReadWholeFile(folder_), FileError);
}

TEST_F(modFileTest, ApplicationFolderIsTheUsersUnlessPortable) {
  const Variable home("HOME", "/home/user");
  {
    const Variable data("XDG_DATA_HOME", "/data");
    const Variable config("XDG_CONFIG_HOME", "/config");
    EXPECT_EQ(DefaultApplicationFolder(folder_), "/data/Tessarin");
    EXPECT_EQ(ConfigurationFolder(), "/config/Tessarin");
    Put(folder_ / "portable", "");
    EXPECT_EQ(DefaultApplicationFolder(folder_), folder_);
    fs::remove(folder_ / "portable");
  }
  const Variable data("XDG_DATA_HOME", "");
  const Variable config("XDG_CONFIG_HOME", "relative");
  EXPECT_EQ(DefaultApplicationFolder(folder_), "/home/user/.local/share/Tessarin");
  EXPECT_EQ(ConfigurationFolder(), "/home/user/.config/Tessarin");
}

}  // namespace
}  // namespace tessarin
