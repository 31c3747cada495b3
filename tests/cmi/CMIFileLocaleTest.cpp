// The control parameter file under locales that a host may have set.
#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include <zorbi2/ZorbI2Types.h>

#include "tests/support/ControlFileText.h"
#include "tests/support/HostLocale.h"
#include "tests/support/SampleProject.h"

using support::HostLocale;
using support::LineOf;
using support::OpenProject;

namespace {

/// One whole pass; locales must not matter in any step of it.
std::string WholePass() {
    OpenProject project;
    project.manager.SetOutFolder("D:\\M\xfcller\\IDiI");
    project.manager.SetCMIFileFullPath("D:\\Out", "Cover", 3, "cmi");
    project.manager.SetDigimatWeldlineData(1234567.125);
    project.manager.SetEngineCurrentStatus(kSolverAnsys, kMeshOriginal, 0, 0);
    project.manager.SetPopItems();
    project.manager.HasPopItem();
    project.manager.SetWeldlineDataStatus(kSolverAnsys, {1.5, -2.25, 1000000.0}, {0.8, 0.9, 0.95});
    project.manager.SetWeldlineDataValue();
    project.manager.WriteCMIFile(0);
    return project.files.written["D:\\Out\\Cover03.cmi"];
}

std::string PrintedByTheRuntime(double number) {
    char text[32];
    std::snprintf(text, sizeof text, "%.1f", number);
    return text;
}

}  // namespace

TEST(CMIFileLocale, GermanHostGetsDecimalPoints) {
    const HostLocale german(support::kGermanLocale);
    ASSERT_EQ(PrintedByTheRuntime(0.5), "0,5");
    const std::string text = WholePass();
    EXPECT_EQ(LineOf(text, "WeldlineAngle2"), "WeldlineAngle2 = 1.500\n");
    EXPECT_EQ(LineOf(text, "WeldlineAngle4"), "WeldlineAngle4 = 1000000.000\n");
    EXPECT_EQ(LineOf(text, "WeldlineAngle"), "WeldlineAngle = 1234567.125\n");
    EXPECT_EQ(LineOf(text, "ReductionRate1"), "ReductionRate1 = 0.800\n");
}

TEST(CMIFileLocale, WholeFileHasTheSameBytesUnderEveryLocale) {
    const std::string text = WholePass();
    ASSERT_FALSE(text.empty());
    for (const char* name : {support::kGermanLocale, support::kTurkishLocale}) {
        const HostLocale locale(name);
        EXPECT_EQ(WholePass(), text) << name;
    }
}
