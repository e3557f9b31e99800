#include "tools/matlib/PictureFile.h"

#include "tools/matlib/CFailure.h"
#include "tools/matlib/NearestNames.h"
#include "tools/matlib/OutputFile.h"
#include "tools/matlib/Platform.h"
#include "tools/matlib/Wording.h"

#include <array>
#include <cstdio>
#include <random>

namespace
{
bool EndsIn(const std::string& path, std::string_view ending)
{
    return path.size() > ending.size() && EqualIgnoringCase(path.substr(path.size() - ending.size()), ending);
}

// A file that is gone at the end of the scope.
class CScratchFile
{
public:
    CScratchFile(const std::string& beside, const std::string& text)
        : path(beside + "." + std::to_string(std::random_device()()) + ".svg")
    {
        WriteOutputFile(path, text, ExistingFile::keep);
    }
    ~CScratchFile() { std::remove(path.c_str()); }
    CScratchFile(const CScratchFile&) = delete;
    CScratchFile& operator=(const CScratchFile&) = delete;

    const std::string path;
};

struct Converter
{
    const char* program;
    std::vector<std::string> (*getArguments)(const std::string& from, const std::string& to);
};

constexpr std::array<Converter, 3> converters = {{
    {"rsvg-convert",
     [](const std::string& from, const std::string& to) -> std::vector<std::string> {
         return {"-o", to, from};
     }},
    {"inkscape",
     [](const std::string& from, const std::string& to) -> std::vector<std::string> {
         return {from, "--export-type=png", "--export-filename=" + to};
     }},
    {"magick",
     [](const std::string& from, const std::string& to) -> std::vector<std::string> {
         return {from, to};
     }},
}};

// A name that begins with a dash would be an option.
std::string MakeOperand(const std::string& path)
{
    return path.starts_with('-') ? "./" + path : path;
}

void ConvertToPng(const std::string& path, const std::string& document)
{
    for (const Converter& converter : converters)
    {
        const std::string program = FindProgram(converter.program);
        if (program.empty())
        {
            continue;
        }
        const CScratchFile scratch(path, document);
        const int exitCode = RunProgram(program, converter.getArguments(scratch.path, path));
        if (exitCode != 0 || QueryPath(path.c_str()) != PathState::file)
        {
            throw CFailure(program + " did not make " + Quote(path));
        }
        return;
    }
    throw CFailure("a PNG file needs rsvg-convert, inkscape or magick, and none of them is in PATH; write a "
                   ".svg file instead");
}
} // namespace

std::string DescribeBadPicture(const std::string& path)
{
    return EndsIn(path, ".svg") || EndsIn(path, ".png") ? "" : Quote(path) + " does not end in .svg or .png";
}

void WritePicture(const std::string& path, const std::string& document)
{
    if (EndsIn(path, ".png"))
    {
        ConvertToPng(MakeOperand(path), document);
    }
    else
    {
        WriteOutputFile(path, document, ExistingFile::replace);
    }
}
