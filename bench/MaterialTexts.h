#pragma once

#include <cstdio>
#include <string>

// The same made-up materials as a material file, as JSON and as XML.
struct MaterialTexts
{
    std::string materialFile;
    std::string json;
    std::string xml;
};

inline MaterialTexts MakeMaterialTexts(int materials, int points)
{
    MaterialTexts texts = {"{MAT_FILE}\n{VERSION=1.0}\n", "[", "<library>"};
    char line[256];
    const auto add = [&line](std::string& text, auto... arguments)
    {
        std::snprintf(line, sizeof line, arguments...);
        text += line;
    };
    for (int i = 0; i < materials; ++i)
    {
        const double thickness = 1e-4 + 1e-6 * (i % 400);
        add(texts.materialFile,
            "{DIELECTRIC\n  (NAME = \"Laminate %d\") (TYPE = \"FR4 %d\") (TECHNOLOGY = Core) "
            "(VENDOR = \"Typical\")\n  (THICKNESS = %g)\n",
            i, i % 10, thickness);
        add(texts.json,
            "%s{\"name\":\"Laminate %d\",\"type\":\"FR4 %d\",\"technology\":\"Core\",\"vendor\":\"Typical\","
            "\"thickness\":%g,\"tables\":[",
            i > 0 ? "," : "", i, i % 10, thickness);
        add(texts.xml,
            "<material name=\"Laminate %d\" type=\"FR4 %d\" technology=\"Core\" vendor=\"Typical\" "
            "thickness=\"%g\">",
            i, i % 10, thickness);
        for (int table = 0; table < 2; ++table)
        {
            add(texts.materialFile, "  (%s TEMPERATURE = 25 TABLE =\n", table == 0 ? "ER" : "LOSSTANGENT");
            add(texts.json, "%s{\"kind\":%d,\"temperature\":25,\"rows\":[", table > 0 ? "," : "", table);
            add(texts.xml, "<table kind=\"%d\" temperature=\"25\">", table);
            for (int point = 0; point < points; ++point)
            {
                char frequency[32];
                std::snprintf(frequency, sizeof frequency, "%.3fe%d",
                              1.0 + 8.0 * ((point * 7 + i) % 10) / 10.0, 6 + point * 5 / points);
                const double value = table == 0 ? 4.6 - 0.01 * point - 0.001 * (i % 100)
                                                : 0.015 + 0.0001 * point + 0.00001 * (i % 100);
                add(texts.materialFile, "    %s %.5g\n", frequency, value);
                add(texts.json, "%s[%s,%.5g]", point > 0 ? "," : "", frequency, value);
                add(texts.xml, "<r f=\"%s\" v=\"%.5g\"/>", frequency, value);
            }
            texts.materialFile += "  )\n";
            texts.json += "]}";
            texts.xml += "</table>";
        }
        texts.materialFile += "}\n";
        texts.json += "]}";
        texts.xml += "</material>";
    }
    texts.json += "]";
    texts.xml += "</library>";
    return texts;
}
