#pragma once

class IMaterial;

// Decides which materials have rows in a material grid.
class IMaterialFilter
{
public:
    [[nodiscard]] virtual bool Accept(IMaterial* material) = 0;

protected:
    ~IMaterialFilter() = default;
};
