#pragma once

namespace morvex {

struct KUID;
class ResultsLog;

// What a commit asks of whoever can judge an asset. The commit owns the question only: the room that
// knows the rules implements it and hands it over once, at start-up.
class AssetValidator {
 public:
  virtual ~AssetValidator() = default;

  // True when the committed form of the asset has no errors. Called under the database's write lock;
  // the words go to `log`.
  virtual bool Validate(const KUID& kuid, ResultsLog& log) = 0;
};

// The validator that commits ask from now on, or null for none: a commit then leaves the record's
// `hasErrors` as it is. Not owned; it must outlive the last commit.
void SetAssetValidator(AssetValidator* validator);
AssetValidator* CurrentAssetValidator();

}  // namespace morvex
