#include "MaterialLibrary/MaterialLibrary.h"
#include "shared/MessageManager/ISystemMessageBox.h"
#include "tools/matlib/ILibraryHost.h"

#include <utility>

namespace
{
// The library that is linked into the program. It takes the place of the message box while it lives.
class CLinkedLibrary final : public ILibraryHost, private msg::ISystemMessageBox
{
public:
    CLinkedLibrary() : previous(msg::ReplaceSystemMessageBox(this)) {}
    ~CLinkedLibrary() override { msg::ReplaceSystemMessageBox(previous); }
    CLinkedLibrary(const CLinkedLibrary&) = delete;
    CLinkedLibrary& operator=(const CLinkedLibrary&) = delete;

    [[nodiscard]] IMatLib* Create(const char* fileList) override { return CreateMaterialLibrary(fileList); }
    void Free(IMatLib* library) override { FreeMaterialLibrary(library); }
    [[nodiscard]] std::vector<std::string> TakeMessages() override { return std::exchange(messages, {}); }
    void ShowMessagesInBoxes() override {} // there are no boxes

private:
    int Show(msg::WindowHandle, const char* text, const char*, unsigned) override
    {
        messages.emplace_back(text);
        return msg::answerOk;
    }
    [[nodiscard]] msg::WindowHandle FindMainWindow() override { return nullptr; }
    [[nodiscard]] std::string GetApplicationName() override { return "matlib"; }
    [[nodiscard]] std::string GetExecutablePath() override { return {}; }

    msg::ISystemMessageBox* previous;
    std::vector<std::string> messages;
};
} // namespace

std::unique_ptr<ILibraryHost> OpenLibraryHost(const std::string&)
{
    return std::make_unique<CLinkedLibrary>();
}
