#pragma once

#include "tools/matlib/check/CFitCheck.h"
#include "tools/matlib/check/ParsedFile.h"

#include <future>
#include <memory>
#include <memory_resource>

// Materials that are checked together, with copies of their tables but for the rows.
class CMaterialBatch
{
public:
    CMaterialBatch();

    void Add(const ParsedMaterial& material, const ParsedTables& tables);
    [[nodiscard]] bool IsFull() const;
    [[nodiscard]] std::vector<Finding> Check(std::string_view wholeText, CFitCheck& fits) const;
    void Clear();

private:
    struct Item
    {
        ParsedMaterial material;
        ParsedTables tables;
    };

    template <class T>
    std::span<T> Copy(std::span<const T> originals);

    std::pmr::monotonic_buffer_resource memory; // of the tables
    std::vector<Item> items;
    std::size_t bytes = 0; // of both
};

// Checks each material of a file by itself, on other threads while the file is read on.
class CMaterialChecks
{
public:
    // The first of `fits` serves the thread that reads: with no others, or few materials, it checks them all.
    // They keep what they know for the next file. Text, fits and the rows of the tables must
    // outlive this.
    CMaterialChecks(std::string_view wholeText, std::span<CFitCheck> fits);

    void Add(const ParsedMaterial& material, const ParsedTables& tables);

    // What was found in all that were added, that of each material together. Throws what a check threw.
    [[nodiscard]] std::vector<Finding> Finish();

private:
    struct Worker
    {
        CFitCheck* fits = nullptr;
        std::unique_ptr<CMaterialBatch> batch = std::make_unique<CMaterialBatch>();
        // Its end waits for the thread, which uses the batch: it must come first.
        std::future<std::vector<Finding>> found;
    };

    [[nodiscard]] bool HandOver();
    void Collect(Worker& worker);
    void CheckHere();

    std::string_view text;
    CFitCheck* ownFits;
    std::unique_ptr<CMaterialBatch> batch = std::make_unique<CMaterialBatch>();
    std::vector<Worker> workers;
    std::vector<Finding> findings;
};

// One for each thread that this machine runs at once, up to a number.
[[nodiscard]] std::vector<CFitCheck> MakeFitChecks();
