#pragma once

class IMaterial;

// What a material grid asks and tells its owner.
class ISelectionChangeNotifier
{
public:
    // Another material, none or several are selected now.
    virtual void OnSelectionChange() = 0;

    // The material whose rows carry the marker; null for none.
    [[nodiscard]] virtual IMaterial* GetAssignedMaterial() = 0;

protected:
    ~ISelectionChangeNotifier() = default;
};
