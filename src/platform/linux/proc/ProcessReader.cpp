// SPDX-License-Identifier: MIT
#include "platform/linux/proc/ProcessReader.h"

#include "platform/linux/xdg/ExecKey.h"
#include "platform/linux/xdg/ExecResolver.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <memory>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace calmora {

namespace {

/// Limit per file. Command lines and environments can be longer, but the relevant part is at the
/// front.
constexpr std::size_t readLimit = 1 << 18;

/// "PID/file" for system calls.
class ProcPath {
  public:
    ProcPath(ProcessId process, const char* file) {
        std::snprintf(text_.data(), text_.size(), "%d/%s", process, file);
    }

    [[nodiscard]] const char* get() const { return text_.data(); }

  private:
    std::array<char, 64> text_{};
};

std::string readAll(int descriptor) {
    std::string text;
    // Filled as far as it is read.
    std::array<char, 4096> buffer; // NOLINT(cppcoreguidelines-pro-type-member-init)
    ssize_t count = 0;
    do {
        count = ::read(descriptor, buffer.data(), buffer.size());
        text.append(buffer.data(), static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
        // A short read marks the end of these files.
    } while (count == static_cast<ssize_t>(buffer.size()) && text.size() < readLimit);
    return text;
}

std::optional<ProcessId> processIdOf(const char* name) {
    ProcessId process = 0;
    const char* end = name + std::strlen(name);
    const auto [stop, error] = std::from_chars(name, end, process);
    if (error != std::errc() || stop != end || process < 1) {
        return std::nullopt;
    }
    return process;
}

/// The desktop file at the root of an AppImage; the format requires exactly one.
std::string desktopFileIn(const std::string& folder) {
    std::string found;
    const std::unique_ptr<DIR, int (*)(DIR*)> entries(opendir(folder.c_str()), closedir);
    while (const dirent* entry = entries ? readdir(entries.get()) : nullptr) {
        const std::string name = entry->d_name;
        if (name.ends_with(".desktop") && (found.empty() || name < found)) {
            found = name;
        }
    }
    return found.empty() ? found : folder + "/" + found;
}

/// The file that starts when an interpreter runs this file or folder; empty if none.
std::string startedFile(const std::string& path) {
    std::string file = resolvedFile(path);
    for (const char* name : {"__main__.py", "package.json", "index.js"}) {
        file = file.empty() ? resolvedFile(std::string(path).append("/").append(name)) : file;
    }
    return file;
}

/// The script that a process's relative path means; empty if ambiguous.
std::string scriptIn(const std::string& workingDirectory, const std::string& shellFolder,
                     const std::string& script) {
    std::string file = startedFile(workingDirectory + "/" + script);
    // The process may have changed its working directory.
    const std::string other =
        shellFolder.starts_with('/') ? startedFile(shellFolder + "/" + script) : "";
    if (!file.empty() && !other.empty() && file != other) {
        return {};
    }
    return file.empty() ? other : file;
}

/// The argument that may be a script whose first line started this program; empty if none. The
/// kernel puts the script's path after the program and at most one option.
std::string possibleScript(const std::vector<std::string>& commandLine) {
    const std::size_t at = commandLine.size() > 2 && commandLine[1].starts_with('-') ? 2 : 1;
    const bool isPath = at < commandLine.size() && commandLine[at].find('/') != std::string::npos;
    return isPath ? commandLine[at] : std::string();
}

/// Whether the first line of the file names this program.
bool isScriptOf(const std::string& file, const std::string& executable) {
    const std::string interpreter = file.empty() ? file : scriptInterpreter(file);
    return !interpreter.empty() && interpreterFamily(interpreter) == interpreterFamily(executable);
}

} // namespace

std::uint64_t ticksPerSecond() {
    static const auto ticks = static_cast<std::uint64_t>(::sysconf(_SC_CLK_TCK));
    return ticks;
}

std::uint64_t ticksNow() {
    timespec now{};
    ::clock_gettime(CLOCK_BOOTTIME, &now);
    return static_cast<std::uint64_t>(now.tv_sec) * ticksPerSecond() +
           static_cast<std::uint64_t>(now.tv_nsec) * ticksPerSecond() / 1'000'000'000U;
}

ProcessReader::ProcessReader(const std::filesystem::path& root)
    : root_(::open(root.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC)) {
    struct stat info{};
    if (::stat("/", &info) == 0) {
        ourRoot_ = {info.st_dev, info.st_ino};
    }
}

std::vector<std::pair<ProcessId, std::uint64_t>> ProcessReader::folders() const {
    std::vector<std::pair<ProcessId, std::uint64_t>> folders;
    const int root = openat(root_.get(), ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    const std::unique_ptr<DIR, int (*)(DIR*)> entries(root < 0 ? nullptr : fdopendir(root),
                                                      closedir);
    if (!entries && root >= 0) {
        close(root);
    }
    while (const dirent* entry = entries ? readdir(entries.get()) : nullptr) {
        if (const auto process = processIdOf(entry->d_name)) {
            folders.emplace_back(*process, entry->d_ino);
        }
    }
    return folders;
}

std::optional<TaskTurnover> ProcessReader::turnover() const {
    const FileDescriptor file(openat(root_.get(), "loadavg", O_RDONLY | O_CLOEXEC));
    return file ? parseLoadavg(readAll(file.get())) : std::nullopt;
}

std::optional<std::uint32_t> ProcessReader::folderOwner(ProcessId process) const {
    struct stat info{};
    const bool exists = fstatat(root_.get(), ProcPath(process, "").get(), &info, 0) == 0;
    return exists ? std::optional(info.st_uid) : std::nullopt;
}

std::vector<ProcessId> ProcessReader::processesOf(std::uint32_t user, std::size_t limit) const {
    std::vector<ProcessId> processes;
    for (const auto& [process, inode] : folders()) {
        const auto owner = folderOwner(process);
        // The /proc folder of a process that hides from its own user belongs to root.
        const auto its = owner == 0U && user != 0 ? status(process) : std::nullopt;
        if (owner == user || (its && its->realUser == user)) {
            processes.push_back(process);
        }
    }
    std::sort(processes.begin(), processes.end());
    processes.resize(std::min(processes.size(), limit));
    return processes;
}

std::optional<std::uint64_t> ProcessReader::startTime(ProcessId process) const {
    const auto its = stat(process);
    return its && !its->isGone() ? std::optional(its->startTime) : std::nullopt;
}

ProcessId ProcessReader::parent(ProcessId process) const {
    const auto its = stat(process);
    return its ? its->parent : 0;
}

std::optional<std::string> ProcessReader::executable(ProcessId process) const {
    auto target = linkTarget(process, "exe");
    struct stat info{};
    // A file's real name may end with the mark.
    if (!target || withoutDeletedMark(*target) == *target || ::lstat(target->c_str(), &info) == 0) {
        return target;
    }
    std::string path(withoutDeletedMark(*target));
    // A folder with the deleted file's name may hold other programs.
    const bool isFolder = ::stat(path.c_str(), &info) == 0 && S_ISDIR(info.st_mode);
    return isFolder ? std::nullopt : std::optional(std::move(path));
}

std::optional<std::string> ProcessReader::executableFromHere(ProcessId process) const {
    auto path = executable(process);
    if (!path || !hasOwnRoot(process)) {
        return path;
    }
    if (const auto sandbox = parseFlatpakInfo(readFlatpakInfo(process))) {
        constexpr std::string_view app = "/app/";
        if (const auto folder = flatpakFolder(*sandbox); folder && path->starts_with(app)) {
            return *folder + path->substr(app.size());
        }
    } else {
        struct stat theirs{};
        struct stat ours{};
        if (fstatat(root_.get(), ProcPath(process, "exe").get(), &theirs, 0) == 0 &&
            ::stat(path->c_str(), &ours) == 0 && theirs.st_dev == ours.st_dev &&
            theirs.st_ino == ours.st_ino) {
            return path;
        }
    }
    return "/proc/" + std::to_string(process) + "/root" + *path;
}

std::optional<ProcessDetails> ProcessReader::details(ProcessId process) const {
    const auto before = stat(process);
    const auto owner = status(process);
    if (!before || before->isGone() || !owner) {
        return std::nullopt;
    }
    ProcessDetails details;
    details.pid = process;
    details.parent = before->parent;
    details.startTime = before->startTime;
    details.owner = owner->realUser;
    details.comm = before->comm;
    details.commandLine = commandLine(process);
    details.executable = executable(process);
    details.cgroup = controlGroup(process);
    details.environment = parseLaunchEnvironment(read(process, "environ"));
    details.hasOwnRoot = hasOwnRoot(process);
    details.isExecutableElsewhere =
        details.hasOwnRoot && executableFromHere(process) != details.executable;
    details.flatpak = parseFlatpakInfo(readFlatpakInfo(process));
    readCommandFile(details);
    const std::string& appDir = details.environment.appDir;
    if (appDir.starts_with('/') &&
        ((details.executable && details.executable->starts_with(appDir + "/")) ||
         (details.commandPath && details.commandPath->starts_with(appDir + "/")))) {
        details.appImageDesktopFile = desktopFileIn(appDir);
    }
    const auto afterwards = stat(process);
    if (!afterwards || afterwards->startTime != before->startTime) {
        return std::nullopt;
    }
    return details;
}

void ProcessReader::readCommandFile(ProcessDetails& details) const {
    const Command command = commandOfProcess(details.commandLine, details.executable);
    const bool runsItself = command.interpreter.empty() && details.executable;
    const std::string named = runsItself         ? possibleScript(details.commandLine)
                              : command.isModule ? std::string()
                                                 : command.target;
    const bool isRelative = !named.empty() && !named.starts_with('/');
    if (!command.interpreter.empty() || (runsItself && isRelative)) {
        details.workingDirectory = linkTarget(details.pid, "cwd");
    }
    std::string file;
    if (isRelative && details.workingDirectory) {
        file = scriptIn(*details.workingDirectory, details.environment.shellFolder, named);
    } else if (!isRelative && !named.empty()) {
        file = command.interpreter.empty() ? resolvedFile(named) : startedFile(named);
    }
    if (runsItself && !isScriptOf(file, *details.executable)) {
        return;
    }
    // With another root the paths mean other files.
    if (!file.empty() && !hasOwnRoot(details.pid)) {
        details.commandPath = std::move(file);
        details.runsScript = runsItself;
    }
}

ProcessDetails ProcessReader::outline(ProcessId process) const {
    ProcessDetails details;
    details.pid = process;
    details.commandLine = commandLine(process);
    details.executable = executable(process);
    details.cgroup = controlGroup(process);
    return details;
}

bool ProcessReader::hasOwnRoot(ProcessId process) const {
    struct stat info{};
    return fstatat(root_.get(), ProcPath(process, "root").get(), &info, 0) == 0 &&
           std::pair<std::uint64_t, std::uint64_t>{info.st_dev, info.st_ino} != ourRoot_;
}

std::string ProcessReader::comm(ProcessId process) const {
    std::string name = read(process, "comm");
    return name.substr(0, name.rfind('\n'));
}

std::optional<std::string> ProcessReader::display(ProcessId process) const {
    const auto value = environmentVariable(process, "DISPLAY");
    return value ? std::optional(displayOf(*value)) : std::nullopt;
}

std::optional<std::string> ProcessReader::environmentVariable(ProcessId process,
                                                              std::string_view name) const {
    const FileDescriptor descriptor = open(process, "environ");
    if (!descriptor) {
        return std::nullopt;
    }
    const std::string key = '\0' + std::string(name) + '=';
    const std::string environment = '\0' + readAll(descriptor.get());
    const auto at = environment.find(key);
    return at == std::string::npos ? "" : environment.c_str() + at + key.size();
}

FileDescriptor ProcessReader::open(ProcessId process, const char* file) const {
    if (process < 1) {
        return {};
    }
    return FileDescriptor(openat(root_.get(), ProcPath(process, file).get(), O_RDONLY | O_CLOEXEC));
}

std::string ProcessReader::read(ProcessId process, const char* file) const {
    const FileDescriptor descriptor = open(process, file);
    return descriptor ? readAll(descriptor.get()) : std::string();
}

std::optional<std::string> ProcessReader::linkTarget(ProcessId process, const char* link) const {
    if (process < 1) {
        return std::nullopt;
    }
    std::array<char, 4096> target{};
    const ssize_t length =
        readlinkat(root_.get(), ProcPath(process, link).get(), target.data(), target.size());
    if (length < 1 || target.front() != '/') {
        return std::nullopt;
    }
    return std::string(target.data(), static_cast<std::size_t>(length));
}

std::string ProcessReader::readFlatpakInfo(ProcessId process) const {
    // Another program filled the sandbox's root: accept only a plain file, and do not block.
    const FileDescriptor folder(
        openat(root_.get(), ProcPath(process, "root").get(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    if (!folder) {
        return {};
    }
    const FileDescriptor file(openat(folder.get(), ".flatpak-info",
                                     O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    struct stat info{};
    if (!file || fstat(file.get(), &info) != 0 || !S_ISREG(info.st_mode)) {
        return {};
    }
    return readAll(file.get());
}

} // namespace calmora
