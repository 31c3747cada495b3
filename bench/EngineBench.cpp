// What the engine's operations take, beside the file-system calls alone that they make. The folder
// for temporary files (TMPDIR) decides on the file system.
#include <benchmark/benchmark.h>
#include <malloc.h>
#include <sys/stat.h>

#include <chrono>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include <zorbi2/ZorbI2Engine.h>

#include "bench/Project.h"
#include "platform/PlatformCalls.h"

namespace {

void CreateEngine(benchmark::State& state, std::int32_t solverType) {
    Project project(solverType);
    for (auto _ : state) {
        CZorbI2EngineManager manager;
        manager.CreateEngine(&project.info);
        benchmark::DoNotOptimize(manager.GetZorbI2Engine());
    }
}
BENCHMARK_CAPTURE(CreateEngine, solid, kSolidProject);
BENCHMARK_CAPTURE(CreateEngine, shell, kShellProject);

// ---- The calls of one engine, made again without the engine -------------------------------------

struct SystemCalls {
    std::vector<std::string> tested;
    std::vector<std::string> read;
    std::vector<std::string> written;
};

SystemCalls CallsOfOneEngine(Project& project) {
    static SystemCalls calls;
    calls = {};
    const platform::Calls systemCalls = platform::CurrentCalls();
    platform::CurrentCalls().pathExists = [](const char* path) {
        calls.tested.push_back(platform::NativePath(path));
        return platform::SystemCalls().pathExists(path);
    };
    platform::CurrentCalls().openFile = [](const char* path, const char* mode) {
        (mode[0] == 'w' ? calls.written : calls.read).push_back(platform::NativePath(path));
        return platform::SystemCalls().openFile(path, mode);
    };
    CZorbI2EngineManager().CreateEngine(&project.info);
    platform::CurrentCalls() = systemCalls;
    if (project.info.solverType == kSolidProject) {
        // The result reader opens the file itself: once for each item that needs fibers.
        calls.read.insert(calls.read.end(), 2, project.Folder() + "/Cover03.k5o");
    }
    return calls;
}

void OpenAndRead(const std::string& path) {
    if (std::FILE* file = std::fopen(path.c_str(), "r")) {
        benchmark::DoNotOptimize(std::fgetc(file));
        std::fclose(file);
    }
}

void OpenAndWrite(const std::string& path, const char* text) {
    if (std::FILE* file = std::fopen(path.c_str(), "w")) {
        std::fputs(text, file);
        std::fclose(file);
    }
}

void CreateEngineCalls(benchmark::State& state, std::int32_t solverType) {
    Project project(solverType);
    const SystemCalls calls = CallsOfOneEngine(project);
    for (auto _ : state) {
        for (const std::string& path : calls.tested) {
            struct stat status;
            benchmark::DoNotOptimize(stat(path.c_str(), &status));
        }
        for (const std::string& path : calls.read) {
            OpenAndRead(path);
        }
        for (const std::string& path : calls.written) {
            OpenAndWrite(path, "RSP = 1RSG = 1RSR = 1File = 1");
        }
    }
}
BENCHMARK_CAPTURE(CreateEngineCalls, solid, kSolidProject);
BENCHMARK_CAPTURE(CreateEngineCalls, shell, kShellProject);

// ---- Many engines at once -----------------------------------------------------------------------

/// Made alone, or made and ended.
void Engines(benchmark::State& state, bool withEnd) {
    using Clock = std::chrono::steady_clock;
    Project project(kSolidProject);
    for (auto _ : state) {
        const Clock::time_point start = Clock::now();
        Clock::time_point made;
        {
            std::vector<CZorbI2EngineManager> managers(static_cast<std::size_t>(state.range(0)));
            for (CZorbI2EngineManager& manager : managers) {
                manager.CreateEngine(&project.info);
            }
            made = Clock::now();
        }
        const std::chrono::duration<double> taken = (withEnd ? Clock::now() : made) - start;
        state.SetIterationTime(taken.count());
    }
}
BENCHMARK_CAPTURE(Engines, made, false)->UseManualTime()->RangeMultiplier(10)->Range(1, 1000);
BENCHMARK_CAPTURE(Engines, ended, true)->UseManualTime()->RangeMultiplier(10)->Range(1, 1000);

// ---- Offer and file -----------------------------------------------------------------------------

/// A manager with its three objects, ready to write.
class ReadyToWrite {
public:
    ReadyToWrite() : project(kSolidProject) {
        manager.CreateEngine(&project.info);
        manager.CreateCMIDataBlock();
        manager.CreateCMIAccess();
        manager.SetOutFolder(project.Folder());
        manager.SetCMIFileFullPath(project.Folder(), "Cover", 3, "cmi");
        OfferItems();
    }

    void OfferItems() {
        manager.SetEngineCurrentStatus(kSolverAnsys, kMeshOriginal, 0, 0);
        manager.SetPopItems();
        manager.HasPopItem();
    }

    Project project;
    CZorbI2EngineManager manager;
};

void OfferItems(benchmark::State& state) {
    ReadyToWrite ready;
    for (auto _ : state) {
        ready.OfferItems();
    }
}
BENCHMARK(OfferItems);

void WriteCMIFile(benchmark::State& state) {
    ReadyToWrite ready;
    for (auto _ : state) {
        ready.manager.WriteCMIFile(0);
    }
}
BENCHMARK(WriteCMIFile);

/// Opens, writes and closes the same file with the same text.
void WriteCMIFileCalls(benchmark::State& state) {
    ReadyToWrite ready;
    ready.manager.WriteCMIFile(0);
    const std::string path = ready.project.Folder() + "/Cover03.cmi";
    std::ifstream file(path);
    const std::string text{std::istreambuf_iterator<char>(file), {}};
    for (auto _ : state) {
        OpenAndWrite(path, text.c_str());
    }
}
BENCHMARK(WriteCMIFileCalls);

}  // namespace

int main(int count, char** arguments) {
    // Memory that was freed stays with the process: the kernel's pages are not measured.
    constexpr int oneGigabyte = 1 << 30;
    mallopt(M_TRIM_THRESHOLD, oneGigabyte);
    benchmark::Initialize(&count, arguments);
    benchmark::RunSpecifiedBenchmarks();
}
