#include "validation/categories/spec_database.h"

#include <algorithm>
#include <utility>

#include "validation/categories/koolthingz_spec.h"

namespace morvex {
namespace {

const Nox::PString kKind("kind");

KoolthingzSpecDatabase* registry = nullptr;

bool IsReserved(const KUID& kuid) {
  return kuid.IsNull() || kuid == KUID::SecondReserved();
}

KoolthingzSpec* Filtered(KoolthingzSpec* spec, const SpecFilter& filter) {
  return spec != nullptr && filter && !filter(*spec) ? nullptr : spec;
}

// Takes an element out of a list of owners; null if it isn't in.
template <typename T>
std::unique_ptr<T> TakeOut(std::vector<std::unique_ptr<T>>& list, const T* wanted) {
  const auto is = [wanted](const std::unique_ptr<T>& entry) { return entry.get() == wanted; };
  const auto place = std::find_if(list.begin(), list.end(), is);
  if (place == list.end()) return nullptr;
  std::unique_ptr<T> taken = std::move(*place);
  list.erase(place);
  return taken;
}

}  // namespace

KoolthingzSpecDatabase::KoolthingzSpecDatabase() {
  registry = this;
}

KoolthingzSpecDatabase::~KoolthingzSpecDatabase() {
  specs_.clear();
  pending_.clear();
  // A factory takes itself out of the list as it goes, so the list must not be walked meanwhile.
  while (!factories_.empty())
    TakeOut<KTSpecFactory>(factories_, factories_.front().get());
  byKuid_.clear();
  registry = nullptr;
}

KoolthingzSpecDatabase* KoolthingzSpecDatabase::Get() {
  return registry;
}

KoolthingzSpec* KoolthingzSpecDatabase::Find(const KUID& kuid, const SpecFilter& filter) const {
  if (IsReserved(kuid)) return nullptr;
  const auto found = byKuid_.find(kuid);
  return found == byKuid_.end() ? nullptr : Filtered(found->second.front(), filter);
}

KoolthingzSpec* KoolthingzSpecDatabase::FindIncludingPending(const KUID& kuid,
                                                             const SpecFilter& filter) const {
  if (IsReserved(kuid) || kuid.IsTemporaryAuthor()) return nullptr;
  if (KoolthingzSpec* spec = Find(kuid, filter)) return spec;
  const auto is = [&](const std::unique_ptr<KoolthingzSpec>& spec) { return spec->kuid == kuid; };
  const auto place = std::find_if(pending_.begin(), pending_.end(), is);
  return place == pending_.end() ? nullptr : Filtered(place->get(), filter);
}

KoolthingzSpec* KoolthingzSpecDatabase::FindAndLoad(const KUID& kuid, const SpecFilter& filter) {
  KoolthingzSpec* spec = Find(kuid, filter);
  if (spec != nullptr && !spec->loadStarted) LoadSpec(*spec);
  return spec;
}

void KoolthingzSpecDatabase::AddFactory(std::unique_ptr<KTSpecFactory> factory) {
  factories_.push_back(std::move(factory));
}

void KoolthingzSpecDatabase::ForgetFactory(const KTSpecFactory* factory) {
  static_cast<void>(TakeOut(factories_, factory).release());
}

void KoolthingzSpecDatabase::AddSpec(std::unique_ptr<KoolthingzSpec> spec) {
  byKuid_[spec->kuid].push_back(spec.get());
  specs_.push_back(std::move(spec));
}

std::unique_ptr<KoolthingzSpec> KoolthingzSpecDatabase::RemoveSpec(const KoolthingzSpec* spec) {
  if (std::unique_ptr<KoolthingzSpec> taken = TakeOut(pending_, spec)) return taken;
  std::unique_ptr<KoolthingzSpec> taken = TakeOut(specs_, spec);
  if (taken != nullptr) TakeOutOfTable(spec);
  return taken;
}

KoolthingzSpec* KoolthingzSpecDatabase::CreateSpec(const SpecPlace& place, uint32_t flags,
                                                   const TagContainer& config) {
  const Nox::PString kind = config.GetString(kKind);
  const auto serves = [kind](const std::unique_ptr<KTSpecFactory>& factory) {
    return factory->kindName.EqualsIgnoreCase(kind);
  };
  const auto factory = std::find_if(factories_.begin(), factories_.end(), serves);
  if (factory == factories_.end()) return nullptr;
  std::unique_ptr<KoolthingzSpec> made = (*factory)->CreateSpec(place, flags, config);
  KoolthingzSpec* spec = made.get();
  if (spec != nullptr) AddSpec(std::move(made));
  return spec;
}

void KoolthingzSpecDatabase::LoadSpec(KoolthingzSpec& spec) {
  if (spec.loadStarted) return;
  spec.loadStarted = true;
  spec.Load();
  spec.isValid = !spec.isNull && spec.CheckValid();
  if (spec.isNull) return;
  if (spec.isValid) {
    spec.OnValid();
  } else if (std::unique_ptr<KoolthingzSpec> taken = RemoveSpec(&spec)) {
    pending_.push_back(std::move(taken));
  }
}

void KoolthingzSpecDatabase::TakeOutOfTable(const KoolthingzSpec* spec) {
  const auto found = byKuid_.find(spec->kuid);
  std::erase(found->second, spec);
  if (found->second.empty()) byKuid_.erase(found);
}

}  // namespace morvex
