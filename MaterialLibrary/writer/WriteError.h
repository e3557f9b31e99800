#pragma once

#include <cstddef>
#include <string>
#include <utility>

// A file that could not be written. Whatever stood at the path stands there still, and nothing beside it.
class CWriteError
{
public:
    enum class Kind
    {
        exists, // there is a file that must not be replaced
        system  // the system, or what stands at the path, does not allow it
    };

    CWriteError(Kind errorKind, std::string filePath, std::string errorReason)
        : kind(errorKind), path(std::move(filePath)), reason(std::move(errorReason))
    {
    }
    [[nodiscard]] Kind GetKind() const { return kind; }
    [[nodiscard]] const std::string& GetPath() const { return path; }     // as it was given
    [[nodiscard]] const std::string& GetReason() const { return reason; } // what the system says of it

private:
    Kind kind;
    std::string path;
    std::string reason;
};

// A material that no file can hold.
class CUnwritableError
{
public:
    enum class Kind
    {
        quote,        // a text with a double quote in it: the format knows no escape
        nul,          // a text or a remark with a NUL in it, which would end the file
        lineEnd,      // a remark with a line end in it
        notANumber,   // a number that is NaN
        kind,         // neither dielectric nor metal
        mixedKinds,   // not of the first material's kind
        foreignValue, // a value or a table of the other kind
        technology    // a number that stands for no technology
    };

    // `material` is the index of the material, `field` the word of the record, such as "NAME", or "remarks".
    CUnwritableError(Kind errorKind, std::size_t materialIndex, std::string fieldName)
        : kind(errorKind), material(materialIndex), field(std::move(fieldName))
    {
    }
    [[nodiscard]] Kind GetKind() const { return kind; }
    [[nodiscard]] std::size_t GetMaterial() const { return material; }
    [[nodiscard]] const std::string& GetField() const { return field; }

    // What is wrong, as the end of a sentence: "NAME holds a double quote".
    [[nodiscard]] std::string GetText() const;

private:
    Kind kind;
    std::size_t material;
    std::string field;
};
