// The base of the List wave generators.
#include "listgenerator.h"
#include "listgenerator_p.h"

namespace tarn2::specific::orvo5000 {

ListGeneratorPrivate::ListGeneratorPrivate(std::unique_ptr<WaveInfo> info)
    : info(std::move(info))
{}

ListGeneratorPrivate::~ListGeneratorPrivate() = default;

ListGenerator::ListGenerator(ListGeneratorPrivate &dd)
    : WaveGenerator(dd)
{}

ListGenerator::~ListGenerator() = default;

double ListGenerator::time(int i) const
{
    return static_cast<const ListGeneratorPrivate *>(d_ptr.get())->info->time(i);
}

int ListGenerator::count() const
{
    return static_cast<const ListGeneratorPrivate *>(d_ptr.get())->info->count();
}

} // namespace tarn2::specific::orvo5000
