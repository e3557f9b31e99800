#pragma once

// A material in the fixed form of earlier releases. The sample library is made from such records.
struct MLLEGACYRECORD
{
    // What a material carries along unchanged.
    struct NUMBERS
    {
        int first = 0;
        int second = 0;
        double permittivity = 0.0;
        double lossTangent = 0.0;
        double bulkResistivity = 0.0; // ohm metres
    };

    char name[32] = {};
    bool hasBulkResistivity = false;
    bool hasThickness = false;
    double thickness = 0.0; // metres
    int technology = -1;    // MLTECHNOLOGY
    NUMBERS numbers;
};
