#include "tools/matlib/check/CMaterialChecks.h"

#include "tools/matlib/check/CWarnings.h"
#include "tools/matlib/check/MaterialWarnings.h"

#include <algorithm>
#include <chrono>
#include <iterator>
#include <thread>

namespace
{
constexpr std::size_t batchBytes = 262144; // checking so much takes far longer than starting a thread
constexpr unsigned mostThreads = 8;        // more would wait for the one that reads
} // namespace

CMaterialBatch::CMaterialBatch() : memory(batchBytes) {}

template <class T>
std::span<T> CMaterialBatch::Copy(std::span<const T> originals)
{
    T* const copies = std::pmr::polymorphic_allocator<>(&memory).allocate_object<T>(originals.size());
    std::ranges::uninitialized_copy(originals, std::span(copies, originals.size()));
    bytes += originals.size_bytes();
    return {copies, originals.size()};
}

void CMaterialBatch::Add(const ParsedMaterial& material, const ParsedTables& tables)
{
    const std::span<ParsedTable> copies = Copy(tables.tables);
    for (ParsedTable& table : copies)
    {
        table.words = Copy(table.words);
    }
    items.push_back({material, {copies, Copy(tables.betweens)}});
    bytes += sizeof(Item);
}

bool CMaterialBatch::IsFull() const
{
    return bytes >= batchBytes;
}

std::vector<Finding> CMaterialBatch::Check(std::string_view wholeText, CFitCheck& fits) const
{
    CWarnings warnings(wholeText);
    for (const Item& item : items)
    {
        CheckMaterial(warnings, item.material, item.tables, fits);
    }
    return std::move(warnings.findings);
}

void CMaterialBatch::Clear()
{
    items.clear();
    bytes = 0;
    memory.release();
}

CMaterialChecks::CMaterialChecks(std::string_view wholeText, std::span<CFitCheck> fits)
    : text(wholeText), ownFits(&fits.front()), workers(fits.size() - 1)
{
    for (std::size_t i = 0; i < workers.size(); ++i)
    {
        workers[i].fits = &fits[i + 1];
    }
}

void CMaterialChecks::Add(const ParsedMaterial& material, const ParsedTables& tables)
{
    batch->Add(material, tables);
    if (batch->IsFull() && !HandOver())
    {
        CheckHere(); // rather than wait for another thread
    }
}

std::vector<Finding> CMaterialChecks::Finish()
{
    CheckHere();
    std::ranges::for_each(workers, [this](Worker& worker) { Collect(worker); });
    return std::move(findings);
}

bool CMaterialChecks::HandOver()
{
    const auto free = std::ranges::find_if(workers,
                                           [](const Worker& worker)
                                           {
                                               return !worker.found.valid() ||
                                                      worker.found.wait_for(std::chrono::seconds(0)) !=
                                                          std::future_status::timeout;
                                           });
    if (free == workers.end())
    {
        return false;
    }
    Collect(*free);
    free->batch.swap(batch);
    // Where no thread can be had, the check is done when its findings are collected.
    free->found = std::async(std::launch::async | std::launch::deferred,
                             [this, &worker = *free] { return worker.batch->Check(text, *worker.fits); });
    return true;
}

void CMaterialChecks::Collect(Worker& worker)
{
    if (worker.found.valid())
    {
        std::ranges::move(worker.found.get(), std::back_inserter(findings));
        worker.batch->Clear();
    }
}

void CMaterialChecks::CheckHere()
{
    std::ranges::move(batch->Check(text, *ownFits), std::back_inserter(findings));
    batch->Clear();
}

std::vector<CFitCheck> MakeFitChecks()
{
    return std::vector<CFitCheck>(std::clamp(std::thread::hardware_concurrency(), 1U, mostThreads));
}
