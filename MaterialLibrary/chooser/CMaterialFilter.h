#pragma once

#include "chooser/ChooserFilterSettings.h"
#include "chooser/IMaterialFilter.h"

#include <string>
#include <utility>
#include <vector>

class IMatLib;

// Accepts the materials of one kind that fit the filter settings and the type of one dialog. The type narrows
// metals only, technology and thickness dielectrics only: hosts rely on a dielectric chooser showing every
// type.
class CMaterialFilter final : public IMaterialFilter
{
public:
    // The settings must outlive the filter; it follows their changes.
    CMaterialFilter(int materialKind, const ChooserFilterSettings& filterSettings);

    // "<All>" at first, which lets every type pass. The dialog's own: the type of the settings may be one
    // that it does not list.
    void SetType(std::string typeText) { type = std::move(typeText); }

    [[nodiscard]] bool Accept(IMaterial* material) override;

private:
    [[nodiscard]] bool AcceptMetal(const IMaterial& material) const;
    [[nodiscard]] bool AcceptDielectric(const IMaterial& material) const;

    int kind;
    const ChooserFilterSettings* settings;
    std::string allTypes;
    std::string type;
};

// The type names of the library's materials of that kind, each once, in the order of their first appearance
// from the last material to the first.
[[nodiscard]] std::vector<std::string> ListTypeNames(const IMatLib& library, int materialKind);
