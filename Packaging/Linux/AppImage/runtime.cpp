// SPDX-License-Identifier: MIT
// The program in front of an image's file system. It mounts that, or unpacks it where nothing can
// be mounted, and becomes the program inside. What it leaves running serves the files and goes with
// it.
#define FUSE_USE_VERSION 34
#include <algorithm>
#include <array>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <elf.h>
#include <fcntl.h>
#include <filesystem>
#include <optional>
#include <poll.h>
#include <string>
#include <string_view>

#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

extern "C" {
#include <squashfuse/ll.h>
}

namespace {

constexpr int failure = 127;

/// What is in a folder of its own until the process behind `program` has ended.
struct Image
{
    std::string path;
    std::size_t offset = 0; ///< Of the file system, in bytes.
    std::string folder; ///< Where its files are, or will be.
    int program = -1; ///< A descriptor of this process.
};

[[noreturn]] void fail(const std::string& what)
{
    std::fprintf(stderr, "tavik-launcher: %s: %s\n", what.c_str(), std::strerror(errno));
    std::_Exit(failure);
}

/// Behind the table of sections, with which a program ends.
std::size_t endOfProgram(const std::string& path)
{
    Elf64_Ehdr header{};
    const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (file < 0 || ::pread(file, &header, sizeof header, 0) != ssize_t{sizeof header}) {
        fail(path);
    }
    ::close(file);
    return header.e_shoff + std::size_t{header.e_shentsize} * header.e_shnum;
}

void closeOutput()
{
    const int nothing = ::open("/dev/null", O_RDWR | O_CLOEXEC);
    for (const int standard : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        ::dup2(nothing, standard);
    }
}

// --- mounted

fuse_lowlevel_ops operations()
{
    fuse_lowlevel_ops known{};
    known.getattr = sqfs_ll_op_getattr;
    known.opendir = sqfs_ll_op_opendir;
    known.releasedir = sqfs_ll_op_releasedir;
    known.readdir = sqfs_ll_op_readdir;
    known.lookup = sqfs_ll_op_lookup;
    known.open = sqfs_ll_op_open;
    known.release = sqfs_ll_op_release;
    known.read = sqfs_ll_op_read;
    known.readlink = sqfs_ll_op_readlink;
    known.forget = sqfs_ll_op_forget;
    known.statfs = stfs_ll_op_statfs;
    return known;
}

/// Answers the kernel until the program has ended.
void answer(fuse_session* session, int program)
{
    fuse_buf request{};
    std::array<pollfd, 2> watched{{{fuse_session_fd(session), POLLIN, 0}, {program, POLLIN, 0}}};
    while (!fuse_session_exited(session)) {
        if (::poll(watched.data(), watched.size(), -1) < 0 && errno != EINTR) {
            break;
        }
        if (watched[1].revents != 0) {
            break;
        }
        if (watched[0].revents != 0 && fuse_session_receive_buf(session, &request) > 0) {
            fuse_session_process_buf(session, &request);
        }
    }
    std::free(request.mem);
}

/// Serves the files; says so in `ready` when they are there, and ends with an exit code.
int serve(const Image& image, int ready)
{
    closeOutput(); // Whoever reads it waits for the program, and what fails is tried in another
                   // way.
    std::array<std::string, 3> words{
        "tavik-launcher", "-o", "ro,nodev,nosuid,subtype=tavik-launcher"};
    std::array<char*, 3> pointers{words[0].data(), words[1].data(), words[2].data()};
    fuse_args arguments{static_cast<int>(pointers.size()), pointers.data(), 0};
    const fuse_lowlevel_ops known = operations();
    sqfs_ll* files = sqfs_ll_open(image.path.c_str(), image.offset);
    fuse_session* session
        = files ? fuse_session_new(&arguments, &known, sizeof known, files) : nullptr;
    if (!session || fuse_session_mount(session, image.folder.c_str()) != 0) {
        return failure;
    }
    const bool isHeard = ::write(ready, "m", 1) == 1;
    ::close(ready);
    if (isHeard) {
        answer(session, image.program);
    }
    fuse_session_unmount(session);
    fuse_session_destroy(session);
    ::rmdir(image.folder.c_str());
    return 0;
}

// --- unpacked

bool writeFile(sqfs* files, sqfs_inode* node, const std::string& path, mode_t permissions)
{
    const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, permissions);
    std::array<char, 65536> bytes{};
    sqfs_off_t place = 0;
    const auto size = static_cast<sqfs_off_t>(node->xtra.reg.file_size);
    bool isGood = file >= 0;
    while (isGood && place < size) {
        sqfs_off_t length = std::min<sqfs_off_t>(size - place, bytes.size());
        isGood = sqfs_read_range(files, node, place, &length, bytes.data()) == SQFS_OK
            && ::write(file, bytes.data(), static_cast<std::size_t>(length)) == length;
        place += length;
    }
    return file >= 0 && ::close(file) == 0 && isGood;
}

bool unpackEntry(sqfs* files, sqfs_dir_entry* entry, const std::string& path)
{
    constexpr mode_t permissionBits = 0777;
    sqfs_inode node{};
    if (sqfs_inode_get(files, &node, sqfs_dentry_inode(entry)) != SQFS_OK) {
        return false;
    }
    const mode_t permissions = node.base.mode & permissionBits;
    switch (sqfs_dentry_mode(entry) & S_IFMT) {
    case S_IFDIR:
        return ::mkdir(path.c_str(), permissions | S_IRWXU) == 0;
    case S_IFREG:
        return writeFile(files, &node, path, permissions);
    case S_IFLNK: {
        std::array<char, 4096> target{};
        std::size_t size = target.size();
        return sqfs_readlink(files, &node, target.data(), &size) == SQFS_OK
            && ::symlink(target.data(), path.c_str()) == 0;
    }
    default:
        return true;
    }
}

bool unpack(const Image& image)
{
    sqfs files{};
    sqfs_traverse walk{};
    if (sqfs_open_image(&files, image.path.c_str(), image.offset) != SQFS_OK
        || sqfs_traverse_open(&walk, &files, sqfs_inode_root(&files)) != SQFS_OK) {
        return false;
    }
    sqfs_err fault = SQFS_OK;
    while (sqfs_traverse_next(&walk, &fault)) {
        if (!walk.dir_end && !unpackEntry(&files, &walk.entry, image.folder + '/' + walk.path)) {
            return false;
        }
    }
    return fault == SQFS_OK;
}

int removeAtEnd(const Image& image)
{
    closeOutput();
    pollfd program{image.program, POLLIN, 0};
    while (::poll(&program, 1, -1) < 0 && errno == EINTR) { }
    std::error_code ignored;
    std::filesystem::remove_all(image.folder, ignored);
    return 0;
}

// --- either

/// Runs `work` in a process that is nobody's child, so that the program inside has none that it
/// does not know.
template <typename Work> bool runBeside(const Work& work)
{
    const pid_t child = ::fork();
    if (child == 0) {
        ::setsid();
        // A session that ends tells everybody; who reads the files is to end first.
        for (const int polite : {SIGHUP, SIGINT, SIGTERM, SIGPIPE}) {
            std::signal(polite, SIG_IGN);
        }
        [[maybe_unused]] const int isFree = ::chdir("/");
        const pid_t grandchild = ::fork();
        std::_Exit(grandchild == 0 ? work() : grandchild < 0 ? failure : 0);
    }
    int status = 0;
    return child > 0 && ::waitpid(child, &status, 0) == child && status == 0;
}

bool mount(const Image& image)
{
    std::array<int, 2> ready{};
    if (::pipe2(ready.data(), O_CLOEXEC) != 0) {
        return false;
    }
    const bool isRunning = runBeside([&] {
        ::close(ready[0]);
        return serve(image, ready[1]);
    });
    ::close(ready[1]);
    char told = 0;
    const bool isMounted = isRunning && ::read(ready[0], &told, 1) == 1;
    ::close(ready[0]);
    return isMounted;
}

std::string variable(const char* name, const char* otherwise)
{
    const char* value = std::getenv(name);
    return value && *value ? value : otherwise;
}

[[noreturn]] void becomeProgram(const Image& image, char** argv)
{
    std::error_code ignored;
    ::setenv("APPIMAGE", image.path.c_str(), 1);
    ::setenv("APPDIR", image.folder.c_str(), 1);
    ::setenv("ARGV0", argv[0], 1);
    ::setenv("OWD", std::filesystem::current_path(ignored).c_str(), 1);
    const std::string program = image.folder + "/AppRun";
    ::execv(program.c_str(), argv);
    fail(program);
}

} // namespace

int main(int argc, char** argv)
{
    std::error_code fault;
    Image image{.path = std::filesystem::read_symlink("/proc/self/exe", fault).string(),
                .folder = "squashfs-root"};
    image.offset = endOfProgram(image.path);
    if (argc > 1 && std::string_view(argv[1]) == "--appimage-extract") {
        if (::mkdir(image.folder.c_str(), S_IRWXU) != 0 || !unpack(image)) {
            fail(image.folder);
        }
        return 0;
    }
    image.folder = variable("TMPDIR", "/tmp") + "/.tavik-launcher-XXXXXX";
    image.program = static_cast<int>(::syscall(SYS_pidfd_open, ::getpid(), 0));
    if (image.program < 0 || !::mkdtemp(image.folder.data())) {
        fail(image.folder);
    }
    ::fcntl(image.program, F_SETFD, FD_CLOEXEC);
    if (mount(image)) {
        becomeProgram(image, argv);
    }
    if (!runBeside([&] { return removeAtEnd(image); }) || !unpack(image)) {
        fail("nothing can be mounted here, and " + image.folder + " not be written");
    }
    becomeProgram(image, argv);
}
