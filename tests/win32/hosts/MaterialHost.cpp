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
} // namespace

int main(int count, char** arguments)
{
    int next = 1;
    if (count > 3 && arguments[1] == std::string("--folder"))
    {
        const std::string folder = arguments[2];
        AddDllDirectory(std::wstring(folder.begin(), folder.end()).c_str());
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
    for (const std::string& box : robot.GetBoxes())
    {
        PrintLine(box);
    }
    PrintLine("end");
    return 0;
}
