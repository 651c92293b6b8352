#include <benchmark/benchmark.h>
#include <rapidjson/document.h>

#include <string>

#include "tagdata/tag_container.h"
#include "tagdata/text_config.h"

// Reading a config text, beside RapidJSON on the same data as JSON. Both make a tree and destroy it.
namespace {

struct Documents {
  std::string config;
  std::string json;
};

// One asset's configuration after the other, each in a soup of its own.
Documents Make(size_t size) {
  Documents made;
  made.json = "{";
  for (int i = 0; made.config.size() < size; ++i) {
    const std::string n = std::to_string(i);
    made.config +=
        "asset" + n + " {\r\n\tkuid\t\t\t\t\t\t<kuid:100:" + n + ">\r\n\tusername\t\t\t\t\t\"Wagon " + n +
        " with "
        "brakes\"\r\n\tbuild\t\t\t\t\t\t2.9\r\n\tcategory-class\t\t\t\t\t\"ZR\"\r\n\tmass\t\t\t\t\t\t1" +
        n + "\r\n\tdescription\t\t\t\t\t\"A wagon of the kind that was built by the thousand, and " +
        "still is.\"\r\n\tattachment-points {\r\n\t\tposition\t\t\t\t\t1.5,2.25,-3.125\r\n\t\tactive" +
        "\t\t\t\t\t1\r\n\t}\r\n}\r\n";
    made.json +=
        std::string(i == 0 ? "" : ",") + "\n\"asset" + n + "\": {\n\t\"kuid\": \"<kuid:100:" + n +
        ">\",\n\t\"username\": \"Wagon " + n +
        " with brakes\",\n\t\"build\": 2.9,\n\t\"category-class\": " + "\"ZR\",\n\t\"mass\": 1" + n +
        ",\n\t\"description\": \"A wagon of the kind that was built by the " +
        "thousand, and still is.\",\n\t\"attachment-points\": {\n\t\t\"position\": [1.5, 2.25, -3.125],\n" +
        "\t\t\"active\": 1\n\t}\n}";
  }
  made.json += "\n}";
  return made;
}

// The arguments are the size of a document and how many of them are read in one turn.
void BM_ParseConfig(benchmark::State& state) {
  const Documents documents = Make(static_cast<size_t>(state.range(0)));
  for (auto _ : state) {
    for (int64_t i = 0; i < state.range(1); ++i) {
      morvex::TagContainer soup;
      benchmark::DoNotOptimize(morvex::ParseSoupText(soup, documents.config, true));
    }
  }
  state.SetBytesProcessed(static_cast<int64_t>(documents.config.size()) * state.range(1) *
                          static_cast<int64_t>(state.iterations()));
}
BENCHMARK(BM_ParseConfig)->Args({10 << 20, 1})->Args({10 << 10, 1000});

void BM_RapidJson(benchmark::State& state) {
  const Documents documents = Make(static_cast<size_t>(state.range(0)));
  for (auto _ : state) {
    for (int64_t i = 0; i < state.range(1); ++i) {
      rapidjson::Document json;
      benchmark::DoNotOptimize(json.Parse(documents.json.data(), documents.json.size()).HasParseError());
    }
  }
  state.SetBytesProcessed(static_cast<int64_t>(documents.json.size()) * state.range(1) *
                          static_cast<int64_t>(state.iterations()));
}
BENCHMARK(BM_RapidJson)->Args({10 << 20, 1})->Args({10 << 10, 1000});

}  // namespace
