#include "writer/WriteWholeFile.h"

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <memory>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace
{
// What one attempt to write needs; it takes away what is unfinished.
class CReplacement
{
public:
    CReplacement(const char* filePath, ExistingFile existingFile) : path(filePath), existing(existingFile)
    {
        FindTarget();
    }

    ~CReplacement()
    {
        if (descriptor >= 0)
        {
            close(descriptor);
        }
        if (!temporary.empty())
        {
            unlink(temporary.c_str());
        }
    }

    CReplacement(const CReplacement&) = delete;
    CReplacement& operator=(const CReplacement&) = delete;

    void Write(std::string_view bytes)
    {
        Open();
        while (!bytes.empty())
        {
            const ssize_t written = write(descriptor, bytes.data(), bytes.size());
            if (written < 0 && errno != EINTR)
            {
                Fail(errno);
            }
            bytes.remove_prefix(written > 0 ? static_cast<std::size_t>(written) : 0);
        }
        Need(fsync(descriptor) == 0 || errno == EINVAL); // some file systems have nothing to flush
        Need(close(std::exchange(descriptor, -1)) == 0);
    }

    void TakeName()
    {
        if (existing == ExistingFile::replace)
        {
            Need(rename(temporary.c_str(), target.c_str()) == 0);
        }
        else if (renameat2(AT_FDCWD, temporary.c_str(), AT_FDCWD, target.c_str(), RENAME_NOREPLACE) != 0)
        {
            // Where the file system does not know that, a second name does not replace anything either.
            Need(errno == EINVAL && link(temporary.c_str(), target.c_str()) == 0);
            unlink(temporary.c_str());
        }
        temporary.clear();
        FlushFolder();
    }

private:
    [[noreturn]] void Fail(int error) const
    {
        const bool isThere = error == EEXIST && existing == ExistingFile::keep;
        throw CWriteError(isThere ? CWriteError::Kind::exists : CWriteError::Kind::system, path,
                          std::strerror(error));
    }

    void Need(bool succeeded) const
    {
        if (!succeeded)
        {
            Fail(errno);
        }
    }

    // Follows links, and looks at what is there.
    void FindTarget()
    {
        struct stat found = {};
        if (lstat(path.c_str(), &found) == 0 && existing == ExistingFile::keep)
        {
            Fail(EEXIST); // also for a link that leads nowhere
        }
        const std::unique_ptr<char, void (*)(void*)> real(realpath(path.c_str(), nullptr), std::free);
        if (real == nullptr)
        {
            const int error = errno;
            const bool isNew = error == ENOENT && lstat(path.c_str(), &found) != 0;
            if (!isNew)
            {
                Fail(error);
            }
            target = path;
            return;
        }
        target = real.get();
        Need(stat(target.c_str(), &found) == 0);
        if (!S_ISREG(found.st_mode))
        {
            const char* const reason = S_ISDIR(found.st_mode) ? std::strerror(EISDIR) : "Not a regular file";
            throw CWriteError(CWriteError::Kind::system, path, reason);
        }
        Need(access(target.c_str(), W_OK) == 0);
        replaced = std::make_unique<struct stat>(found);
    }

    // A new file beside the target, with the target's owner and permissions before anything is in it.
    void Open()
    {
        static std::atomic<unsigned> count = 0;
        constexpr int mostAttempts = 1000;
        const std::string folder = GetFolder();
        const mode_t mode = replaced != nullptr ? S_IRUSR | S_IWUSR : 0666;
        for (int i = 0; descriptor < 0; ++i)
        {
            std::string name =
                folder + ".matlib-" + std::to_string(getpid()) + "-" + std::to_string(count++) + ".tmp";
            descriptor = open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
            if (descriptor >= 0)
            {
                temporary = std::move(name);
            }
            else if (errno != EEXIST || i == mostAttempts)
            {
                throw CWriteError(CWriteError::Kind::system, path, std::strerror(errno));
            }
        }
        if (replaced != nullptr)
        {
            // Only root can give a file away; the group is a matter of luck.
            const bool isOwned = fchown(descriptor, replaced->st_uid, replaced->st_gid) == 0;
            const mode_t kept = isOwned ? 07777 : 0777;
            Need(fchmod(descriptor, replaced->st_mode & kept) == 0);
        }
    }

    [[nodiscard]] std::string GetFolder() const { return target.substr(0, target.rfind('/') + 1); }

    // So that the name outlives a loss of power. The file is there all the same.
    void FlushFolder() const
    {
        const std::string folder = GetFolder();
        const int opened = open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        if (opened >= 0)
        {
            static_cast<void>(fsync(opened));
            close(opened);
        }
    }

    std::string path;
    ExistingFile existing;
    std::string target;
    std::unique_ptr<struct stat> replaced; // the target's, if there is one
    std::string temporary;                 // the unfinished file
    int descriptor = -1;
};
} // namespace

void WriteWholeFile(const char* path, std::string_view bytes, ExistingFile existing)
{
    CReplacement file(path, existing);
    file.Write(bytes);
    file.TakeName();
}
