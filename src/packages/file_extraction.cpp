#include "packages/file_extraction.h"

#include <vector>

#include "engine/file.h"
#include "engine/parallel.h"
#include "packages/extraction_plan.h"
#include "packages/file_coding.h"
#include "packages/target_folder.h"

namespace morvex {
namespace {

constexpr const char* kCantWrite = "Unable to write content files to disk";
constexpr const char* kUnknownData = "Unknown data type encountered. Content package may be damaged";

const char* DecodingText(CodingFailure failure) {
  switch (failure) {
    case CodingFailure::kTooLarge:
      return "Out of memory";
    case CodingFailure::kUnknownCompression:
      return "Unknown compression type encountered. Content package may be damaged";
    default:
      return "Failed to decompress data. Content package may be damaged";
  }
}

// Decodes into a file that was made for it.
const char* FillFile(Nox::File& file, const Raw& raw, std::string_view compression) {
  const PlainFile plain = DecodeFile(raw, compression);
  if (plain.failure != CodingFailure::kNone) return DecodingText(plain.failure);
  const bool written = file.Write(plain.data, plain.size) == plain.size;
  return file.Close() && written ? "" : kCantWrite;
}

const char* RunStep(const ExtractionStep& step, const TargetFolder& target, std::string_view compression) {
  if (step.kind == ExtractionStep::Kind::kUnknown) return kUnknownData;
  if (step.kind == ExtractionStep::Kind::kBlocked) return kCantWrite;
  Nox::File file;
  const bool replace = step.kind == ExtractionStep::Kind::kRewrite;
  if (!target.CreateFile(file, step.path, replace)) return kCantWrite;
  return FillFile(file, step.raw, compression);
}

}  // namespace

Nox::PString ExtractFiles(const TagContainer& files, std::string_view compression, std::string_view folder) {
  TargetFolder target(folder);
  const ExtractionPlan plan(files, target);
  const std::vector<ExtractionStep>& steps = plan.Steps();

  std::vector<const char*> errors(steps.size(), "");
  Nox::ParallelFor(steps.size(), Nox::WorkerCount(), [&](size_t i) {
    if (steps[i].kind != ExtractionStep::Kind::kRewrite) errors[i] = RunStep(steps[i], target, compression);
  });
  // These meet files that the threads have written.
  for (size_t i = 0; i < steps.size(); ++i) {
    if (steps[i].kind == ExtractionStep::Kind::kRewrite) errors[i] = RunStep(steps[i], target, compression);
  }

  std::string_view latest;
  for (const std::string_view error : errors) {
    if (!error.empty()) latest = error;
  }
  return Nox::PString(latest);
}

Nox::PString WriteFile(const Raw& raw, std::string_view compression, std::string_view path) {
  Nox::File file;
  if (!file.Open(path, Nox::OpenMode::kCreate)) return Nox::PString(kCantWrite);
  return Nox::PString(FillFile(file, raw, compression));
}

}  // namespace morvex
