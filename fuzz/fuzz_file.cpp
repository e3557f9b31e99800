// Any bytes as a material file: a message or a library, and every material answers.
#include "model/CFakeMaterialLib.h"
#include "model/CMaterial.h"
#include "reader/LoadMaterialFile.h"
#include "shared/MessageManager/ISystemMessageBox.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>

namespace
{
class CountedMessages final : public msg::ISystemMessageBox
{
public:
    int Show(msg::WindowHandle, const char*, const char*, unsigned) override
    {
        ++count;
        return msg::answerOk;
    }
    [[nodiscard]] msg::WindowHandle FindMainWindow() override { return nullptr; }
    [[nodiscard]] std::string GetApplicationName() override { return "fuzz"; }
    [[nodiscard]] std::string GetExecutablePath() override { return {}; }

    int count = 0;
};

void Require(bool condition)
{
    if (!condition)
    {
        std::abort();
    }
}

void Ask(IMaterial& material)
{
    double value = 0.0;
    for (const int kind : {0, 1, 2, 3})
    {
        material.GetValue(kind, 2.5e9, &value, 25.0);
        material.GetValue(kind, 1.0e5, &value, 60.0);
    }
    (void)material.GetAttribute(MLATTR_THICKNESS, &value);
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static CountedMessages messages;
    msg::ReplaceSystemMessageBox(&messages);
    messages.count = 0;
    const std::string original(reinterpret_cast<const char*>(data), size);
    std::string text = original;
    CFakeMaterialLib library;
    const bool loaded = LoadMaterialText(library, text, "fuzz.mat");
    Require(messages.count == (loaded ? 0 : 1));
    Require(loaded || library.GetMaterialCount() == 0);
    Require(text == original || original.find('\0') != std::string::npos);
    for (int i = 0; i < std::min(library.GetMaterialCount(), 4); ++i)
    {
        IMaterial& material = *library.GetMaterial(i);
        Require(material.GetName()[0] == '\0' || library.FindMaterial(material.GetName()) != nullptr);
        Ask(material);
    }
    return 0;
}
