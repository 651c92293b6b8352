// The remembered answers about dependencies. Both walks go through the dependencies' own remembered answers, so
// each record is looked at once, and a circle ends where it comes back to a record. Their depth comes from
// files, so they keep their own stacks.

#include <vector>

#include "database/catalogue/asset_cache.h"
#include "database/catalogue/database.h"

namespace morvex {
namespace {

struct Question {
  AssetFlag answer;
  AssetFlag known;
  bool aboutFaults;
};

constexpr Question kMissing = {AssetFlag::kMissingDeps, AssetFlag::kMissingDepsKnown, false};
constexpr Question kFaulty = {AssetFlag::kFaultyDeps, AssetFlag::kFaultyDepsKnown, true};

// A record whose answer is being worked out.
struct Step {
  ZEBAssetInfo* record;
  std::vector<KUID> dependencies;
  size_t next = 0;
};

class DependencyWalk {
 public:
  DependencyWalk(ZEBAssetCache& cache, const Question& question) : cache_(cache), question_(question) {}

  void Run(ZEBAssetInfo& record) {
    Enter(record);
    while (!steps_.empty()) {
      Step& step = steps_.back();
      if (step.next == step.dependencies.size()) {
        steps_.pop_back();
      } else {
        Look(step);
      }
    }
  }

 private:
  // Known from here on, and "no" until a dependency says otherwise.
  void Enter(ZEBAssetInfo& record) {
    record.Set(question_.answer, false);
    record.Set(question_.known, true);
    if (!record.IsInstalled()) return;
    steps_.push_back({&record, cache_.dependencies.DependenciesOf(record.Kuid())});
  }

  // At the next dependency. One whose own answer isn't known yet is gone into first and then looked at again.
  void Look(Step& step) {
    const KUID& wanted = step.dependencies[step.next];
    const KUID replacement = cache_.obsoletes.Find(wanted);
    ZEBAssetInfo* dependency = cache_.Find(replacement.IsNull() ? wanted : replacement);
    if (dependency == nullptr || !dependency->IsInstalled()) {
      Answer(step,
             !question_.aboutFaults || (dependency != nullptr && dependency->Has(AssetFlag::kHasErrors)));
    } else if (question_.aboutFaults && dependency->Has(AssetFlag::kHasErrors)) {
      Answer(step, true);
    } else if (!dependency->Has(question_.known)) {
      Enter(*dependency);
    } else {
      Answer(step, dependency->Has(question_.answer));
    }
  }

  void Answer(Step& step, bool yes) {
    if (!yes) {
      ++step.next;
      return;
    }
    step.record->Set(question_.answer, true);
    step.next = step.dependencies.size();
  }

  ZEBAssetCache& cache_;
  const Question& question_;
  std::vector<Step> steps_;
};

}  // namespace

bool ZEBAssetCache::MissingDeps(ZEBAssetInfo& record) {
  return DependencyAnswer(record, false);
}

bool ZEBAssetCache::FaultyDeps(ZEBAssetInfo& record) {
  return DependencyAnswer(record, true);
}

bool ZEBAssetCache::DependencyAnswer(ZEBAssetInfo& record, bool faulty) {
  const Question& question = faulty ? kFaulty : kMissing;
  const std::lock_guard guard(computing_);  // a walk in progress has answers that don't hold yet
  if (!record.Has(question.known)) {
    DependencyWalk(*this, question).Run(record);
    ZEBMarkChanged(kContentChanged);
  }
  return record.Has(question.answer);
}

// Goes on from a dependant only if it remembered something: nobody further up can know more through it.
void ZEBAssetCache::ForgetDependants(const KUID& kuid) {
  const std::lock_guard guard(computing_);
  const auto forget = [](ZEBAssetInfo& record) {
    const bool knew = record.Has(AssetFlag::kMissingDepsKnown) || record.Has(AssetFlag::kFaultyDepsKnown);
    if (knew) {
      record.Set(AssetFlag::kMissingDepsKnown, false);
      record.Set(AssetFlag::kFaultyDepsKnown, false);
    }
    return knew;
  };
  if (ZEBAssetInfo* self = Find(kuid)) forget(*self);

  std::vector<KUID> waiting = {kuid};
  while (!waiting.empty()) {
    KUIDList names;  // under which others may depend on it
    names.Add(waiting.back());
    obsoletes.Replacements(waiting.back(), names);
    waiting.pop_back();
    for (const KUID& name : names) {
      for (const KUID& dependant : dependencies.DependantsOf(name)) {
        ZEBAssetInfo* record = Find(dependant);
        if (record != nullptr && forget(*record)) waiting.push_back(dependant);
      }
    }
  }
}

}  // namespace morvex
