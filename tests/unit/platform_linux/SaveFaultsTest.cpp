// SPDX-License-Identifier: MIT
#include "fakes/FakeRunLoop.h"
#include "platform/linux/xdg/JsonUserDefaults.h"
#include "support/TempFolder.h"

#include <cerrno>
#include <csignal>

#include <dlfcn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace calmora {
namespace {

/// What the chosen call of a save does. Others are the errno with which it fails.
constexpr int worksInPart = 0;
constexpr int killsTheProcess = -1;

struct Faults {
    /// The number of the call that goes wrong; 0 for none.
    int chosen = 0;
    int kind = 0;
    int calls = 0;

    /// Whether this call fails.
    bool strike() {
        if (chosen == 0 || ++calls != chosen || kind == worksInPart) {
            return false;
        }
        if (kind == killsTheProcess) {
            kill(getpid(), SIGKILL);
        }
        errno = kind;
        return true;
    }

    [[nodiscard]] bool isPartial() const { return chosen != 0 && calls == chosen && kind == 0; }
} faults;

template <typename Function>
Function* real(const char* name) {
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

} // namespace
} // namespace calmora

// In place of the system's calls, under names that headers do not know.
#define CALMORA_FAULTY(name, parameters, arguments)                                                \
    extern "C" int calmora_faulty_##name parameters __asm__(#name);                                \
    extern "C" int calmora_faulty_##name parameters {                                              \
        static auto* const call = calmora::real<int parameters>(#name);                            \
        return calmora::faults.strike() ? -1 : call arguments;                                     \
    }
CALMORA_FAULTY(fsync, (int file), (file))
CALMORA_FAULTY(rename, (const char* from, const char* to), (from, to))
CALMORA_FAULTY(mkostemp, (char* name, int flags), (name, flags))
CALMORA_FAULTY(fchmod, (int file, mode_t mode), (file, mode))
CALMORA_FAULTY(fstat, (int file, struct stat* info), (file, info))
CALMORA_FAULTY(lstat, (const char* path, struct stat* info), (path, info))
#undef CALMORA_FAULTY

extern "C" ssize_t calmora_faulty_readlink(const char* path, char* text,
                                           std::size_t size) __asm__("readlink");

extern "C" ssize_t calmora_faulty_readlink(const char* path, char* text, std::size_t size) {
    static auto* const call = calmora::real<decltype(readlink)>("readlink");
    return calmora::faults.strike() ? -1 : call(path, text, size);
}

#define CALMORA_FAULTY(name, pointer)                                                              \
    extern "C" ssize_t calmora_faulty_##name(int file, pointer data,                               \
                                             std::size_t size) __asm__(#name);                     \
    extern "C" ssize_t calmora_faulty_##name(int file, pointer data, std::size_t size) {           \
        static auto* const call = calmora::real<decltype(name)>(#name);                            \
        if (calmora::faults.strike()) {                                                            \
            return -1;                                                                             \
        }                                                                                          \
        return call(file, data, calmora::faults.isPartial() ? (size + 1) / 2 : size);              \
    }
CALMORA_FAULTY(read, void*)
CALMORA_FAULTY(write, const void*)
#undef CALMORA_FAULTY

namespace calmora {
namespace {

/// A start with one change, during which the chosen call goes wrong; whether the change was saved.
struct Save {
    Save(const std::filesystem::path& file, RunLoop& loop, int chosen, int kind) {
        faults = {chosen, kind, 0};
        defaults.emplace(file, loop);
        defaults->set("new", true);
        isSaved = defaults->flush();
        calls = std::exchange(faults, {}).calls;
    }

    std::optional<JsonUserDefaults> defaults;
    bool isSaved = false;
    int calls = 0;
};

constexpr auto permissions = std::filesystem::perms(0640);

/// The preferences hold what they held, or that and the change; nothing lies beside them.
void expectWhole(const std::filesystem::path& file, bool isLink, bool isSaved) {
    const auto now = readMembers(TempFolder::read(file));
    const JsonMembers before{{"foreign", "[1e999]"}, {"old", "true"}};
    JsonMembers after = before;
    after["new"] = "true";
    EXPECT_TRUE(now == after || (now == before && !isSaved)) << TempFolder::read(file);
    EXPECT_EQ(std::filesystem::is_symlink(file), isLink);
    EXPECT_EQ(std::filesystem::status(file).permissions(), permissions);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(file.parent_path()), {}),
              isLink ? 2 : 1);
}

TEST(SaveFaults, NeverTearOrLoseThePreferences) {
    FakeClock clock;
    FakeRunLoop loop{clock};
    testing::internal::CaptureStderr();
    int struck = 0;
    for (const int kind : {ENOSPC, EIO, EINTR, worksInPart, killsTheProcess}) {
        for (const bool isLink : {false, true}) {
            bool isOver = false;
            for (int chosen = 1; !isOver; ++chosen) {
                SCOPED_TRACE(std::to_string(kind) + " at " + std::to_string(chosen));
                const TempFolder folder;
                const auto file = folder.path() / "preferences.json";
                std::filesystem::permissions(folder.write(isLink ? "target" : "preferences.json",
                                                          R"({"foreign": [1e999], "old": true})"),
                                             permissions);
                if (isLink) {
                    std::filesystem::create_symlink("target", file);
                }
                const pid_t child = kind == killsTheProcess ? fork() : 0;
                if (child == 0) {
                    Save save(file, loop, chosen, kind);
                    isOver = save.calls < chosen;
                    if (kind == killsTheProcess) {
                        _exit(0);
                    }
                    expectWhole(file, isLink, save.isSaved);
                    EXPECT_TRUE(save.defaults->flush());
                } else {
                    int status = 0;
                    ASSERT_EQ(waitpid(child, &status, 0), child);
                    isOver = WIFEXITED(status);
                    Save(file, loop, 0, 0); // The next start.
                }
                expectWhole(file, isLink, true);
                struck += isOver ? 0 : 1;
            }
        }
    }
    EXPECT_GT(struck, 5 * 2 * 8) << "too few calls went wrong: they bypass this test";
    testing::internal::GetCapturedStderr();
}

} // namespace
} // namespace calmora
