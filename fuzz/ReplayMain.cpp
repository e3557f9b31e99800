// Replays inputs that a fuzzer found or was seeded with: each file named on the command line and each file
// in the folders named there.

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace
{
bool Replay(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    if (!file)
    {
        return false;
    }
    const std::vector<char> bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
    return true;
}

int ReplayAll(const std::filesystem::path& path)
{
    if (!std::filesystem::is_directory(path))
    {
        return Replay(path) ? 1 : 0;
    }
    int replayed = 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(path))
    {
        replayed += entry.is_regular_file() && Replay(entry.path()) ? 1 : 0;
    }
    return replayed;
}
} // namespace

int main(int argc, char** argv)
{
    int replayed = 0;
    for (int i = 1; i < argc; ++i)
    {
        replayed += ReplayAll(argv[i]);
    }
    std::printf("%d inputs replayed\n", replayed);
    return replayed > 0 ? 0 : 1;
}
