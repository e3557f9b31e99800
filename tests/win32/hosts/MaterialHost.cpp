// A host of MaterialLibrary.dll that prints what happens:
// material_host [--folder FOLDER] MODULE FILE-LIST
// FOLDER is added to those that the host's modules come from. Message boxes are answered with OK.
#include "tests/win32/CMessageBoxRobot.h"
#include "tests/win32/CModule.h"
#include "tests/win32/Console.h"

namespace
{
void UseModule(const char* path, const char* fileList)
{
    const CModule module(path);
    PrintLine("loaded");
    const CModule::Library library = module.Create(fileList);
    PrintLine("materials " + std::to_string(library->GetMaterialCount()));
}

void AddFolder(const char* folder)
{
    const std::wstring wide(folder, folder + std::char_traits<char>::length(folder));
    if (AddDllDirectory(wide.c_str()) == nullptr)
    {
        PrintLine("cannot add the folder");
    }
}
} // namespace

int main(int count, char** arguments)
{
    int next = 1;
    if (count > 3 && arguments[1] == std::string("--folder"))
    {
        AddFolder(arguments[2]);
        next = 3;
    }
    const CMessageBoxRobot robot;
    try
    {
        UseModule(arguments[next], arguments[next + 1]);
    }
    catch (const std::exception& error)
    {
        PrintLine(error.what());
        return 1;
    }
    for (const auto& box : robot.GetBoxes())
    {
        PrintLine("box " + box.caption + (box.isWarning ? " (warning): " : ": ") + box.text);
    }
    PrintLine("end");
    return 0;
}
