// A project with all results in a temporary folder, as the measurements use it.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include <zorbi2/CZorbFEAInformation.h>
#include <zorbi2/ZorbI2Types.h>

/// Without a shot file: each read would keep a handle.
class Project {
public:
    explicit Project(std::int32_t solverType) : folder_(MakeFolder() / "Run03") {
        std::filesystem::create_directory(folder_);
        for (const char* extension : {".o2w", ".k5o", ".rsf", ".k5w", ".k5f", ".k5p", ".k5c",
                                      ".k5s", ".rso", ".rsp", ".rsg", ".rsr", ".rsc"}) {
            std::ofstream(folder_ / (std::string("Cover03") + extension)) << "1004\n";
        }
        std::ofstream(folder_ / "Cover03_medi.crp");
        info.projectName = "Cover";
        info.runNumber = 3;
        info.projectFolder = Folder() + "/";
        info.solverType = solverType;
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
    static std::filesystem::path MakeFolder() {
        std::string name =
            (std::filesystem::temp_directory_path() / "zorbi2-bench-XXXXXX").string();
        if (mkdtemp(name.data()) == nullptr) {
            std::perror(name.c_str());
            std::exit(1);
        }
        return name;
    }

    std::filesystem::path folder_;
};
