#include "tools/matlib/import/Templates.h"

namespace
{
constexpr std::string_view laminate =
    R"(* A laminate to start from. The values are invented: put those of your data sheet in their place.
* What stands behind a * up to the end of its line is a comment.
* Then check the file:  matlib check FILE.mat
{MAT_FILE}
{VERSION=1.0}

{DIELECTRIC
(NAME       = "My laminate 0.2 mm")  * a host finds the material by this name
(TYPE       = "FR4")                 * the class of laminate
(TECHNOLOGY = Core)                  * Core, Prepreg or Flexcore
(VENDOR     = "My vendor")
(COMMENT    = "Invented values")     * or delete the line: each record may be missing
(THICKNESS  = 200e-6)                * in metres: 200e-6 is 0.2 mm

* Relative permittivity (Er, Dk): frequency and value in pairs, the frequencies ascending. A frequency and its unit
* are one word: Hz, kHz, MHz, GHz or THz. Er falls with frequency.
(ER          TEMPERATURE = 25 TABLE =
    100MHz  4.33
    1GHz    4.22
    10GHz   4.09
)

* Loss tangent (Df) at the same frequencies and the same temperature, in degrees Celsius. It is a ratio: 2 % is 0.02.
* Three points in a decade make a good model.
(LOSSTANGENT TEMPERATURE = 25 TABLE =
    100MHz  0.019
    1GHz    0.020
    10GHz   0.021
)
}

* Of another laminate only one point is known. VALUE is the same at every frequency.
{DIELECTRIC
(NAME        = "My laminate, one point")
(ER          VALUE = 4.2)
(LOSSTANGENT VALUE = 0.02)
}
)";

constexpr std::string_view foil =
    R"(* A foil to start from. The values are invented: put those of your data sheet in their place.
* What stands behind a * up to the end of its line is a comment.
* Then check the file:  matlib check FILE.mat
{MAT_FILE}
{VERSION=1.0}

{METAL
(NAME    = "My copper foil 35 um")  * a host finds the material by this name
(TYPE    = "Copper foil")
(VENDOR  = "My vendor")
(COMMENT = "Invented values")       * or delete the line: each record may be missing
(RB      = 1.78e-8)                 * the bulk resistivity in ohm metres

* Roughness is a factor: the conductor loss with the rough face, divided by that with a smooth one. It is no height.
(ROUGHTOP VALUE = 1)                * a smooth face

* Frequency and factor in pairs, the frequencies ascending. A frequency and its unit are one word: Hz, kHz, MHz, GHz
* or THz. Give the very frequencies at which your program computes: between them the library has no usable factor.
(ROUGHBTM TABLE =
    1GHz   1.32
    2GHz   1.52
    5GHz   1.75
    10GHz  1.86
)
}
)";
} // namespace

std::string_view GetTemplate(std::string_view name)
{
    return name == "laminate" ? laminate : name == "foil" ? foil : std::string_view();
}
