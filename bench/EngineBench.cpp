// What an engine costs, beside what its file-system calls alone cost: the goal is that the first
// stays within twice the second. Also counts allocations, which do not vary between runs.
#include <benchmark/benchmark.h>

#include <atomic>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include <zorbi2/ZorbI2Engine.h>

#include "platform/PlatformCalls.h"

extern std::atomic<long> allocations;  // CountedAllocations.cpp

namespace {

/// A solid project with all results, in a temporary folder. Without a shot file: each read would
/// keep a handle.
class Project {
public:
    Project() : folder_(std::filesystem::temp_directory_path() / "zorbi2-bench" / "Run03") {
        std::filesystem::create_directories(folder_);
        for (const char* extension : {".o2w", ".k5o", ".rsf", ".k5w", ".k5f", ".k5p", ".k5c"}) {
            std::ofstream(folder_ / (std::string("Cover03") + extension)) << "1004\n";
        }
        info.projectName = "Cover";
        info.runNumber = 3;
        info.projectFolder = folder_.string() + "/";
        for (unsigned char& flag : info.flags) {
            flag = 1;
        }
    }
    ~Project() { std::filesystem::remove_all(folder_.parent_path()); }
    Project(const Project&) = delete;
    Project& operator=(const Project&) = delete;

    std::string Folder() const { return folder_.string(); }

    CZorbFEAInformation info;

private:
    std::filesystem::path folder_;
};

class CountedAllocations {
public:
    explicit CountedAllocations(benchmark::State& state) : state_(state), start_(allocations) {}
    ~CountedAllocations() {
        state_.counters["allocations"] =
            static_cast<double>(allocations - start_) / static_cast<double>(state_.iterations());
    }
    CountedAllocations(const CountedAllocations&) = delete;
    CountedAllocations& operator=(const CountedAllocations&) = delete;

private:
    benchmark::State& state_;
    long start_;
};

void CreateEngine(benchmark::State& state) {
    Project project;
    const CountedAllocations counted(state);
    for (auto _ : state) {
        CZorbI2EngineManager manager;
        manager.CreateEngine(&project.info);
        benchmark::DoNotOptimize(manager.GetZorbI2Engine());
    }
}
BENCHMARK(CreateEngine);

/// The existence tests of one engine, made again without the engine.
void FileTestsAlone(benchmark::State& state) {
    Project project;
    static std::vector<std::string> testedPaths;
    testedPaths.clear();
    const auto realTest = platform::CurrentCalls().pathExists;
    platform::CurrentCalls().pathExists = [](const char* path) {
        testedPaths.emplace_back(path);
        return platform::SystemCalls().pathExists(path);
    };
    {
        CZorbI2EngineManager manager;
        manager.CreateEngine(&project.info);
    }
    platform::CurrentCalls().pathExists = realTest;
    for (auto _ : state) {
        for (const std::string& path : testedPaths) {
            benchmark::DoNotOptimize(realTest(path.c_str()));
        }
    }
    state.counters["file tests"] = static_cast<double>(testedPaths.size());
}
BENCHMARK(FileTestsAlone);

void OfferItems(benchmark::State& state) {
    Project project;
    CZorbI2EngineManager manager;
    manager.CreateEngine(&project.info);
    const CountedAllocations counted(state);
    for (auto _ : state) {
        manager.SetEngineCurrentStatus(kSolverAnsys, kMeshOriginal, 0, 0);
        manager.SetPopItems();
        benchmark::DoNotOptimize(manager.HasPopItem());
    }
}
BENCHMARK(OfferItems);

void WriteFile(benchmark::State& state) {
    Project project;
    CZorbI2EngineManager manager;
    manager.CreateEngine(&project.info);
    manager.CreateCMIDataBlock();
    manager.CreateCMIAccess();
    manager.SetCMIFileFullPath(project.Folder(), "Cover", 3, "cmi");
    manager.SetEngineCurrentStatus(kSolverAnsys, kMeshOriginal, 0, 0);
    manager.SetPopItems();
    manager.HasPopItem();
    const CountedAllocations counted(state);
    for (auto _ : state) {
        manager.WriteCMIFile(0);
    }
}
BENCHMARK(WriteFile);

/// Opening, writing and closing a file of the same size without the engine.
void WriteFileAlone(benchmark::State& state) {
    Project project;
    const std::string path = project.Folder() + "/Cover03.cmi";
    const std::string text(2600, 'x');
    for (auto _ : state) {
        std::FILE* file = std::fopen(path.c_str(), "w");
        std::fputs(text.c_str(), file);
        std::fclose(file);
    }
}
BENCHMARK(WriteFileAlone);

}  // namespace

BENCHMARK_MAIN();
