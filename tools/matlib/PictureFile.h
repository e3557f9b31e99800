#pragma once

#include <string>

// Writes an SVG document to a file, as it is when the file's name ends in .svg, and through a converter when
// it ends in .png. Throws CFailure when the file cannot be written or no converter is installed.
void WritePicture(const std::string& path, const std::string& document);

// Why a picture cannot have this name; empty when it can.
[[nodiscard]] std::string DescribeBadPicture(const std::string& path);
