// What is asked for, by recipe and offer: against expectations by hand.
#include "handover/AskedFor.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <tuple>

#include <zorbi2/ZorbI2Types.h>

namespace {

using host::AskedFor;
using host::ControlFile;
using host::OfferedItem;
using host::Recipe;
using testing::Contains;
using testing::Key;
using testing::Not;
using testing::Pair;

struct AskedForTest : testing::Test {
    AskedForTest() {
        for (std::int32_t itemId = 0; itemId < kItemCount; ++itemId) {
            items[itemId] = std::make_unique<CZorbI2Item>();
            items[itemId]->itemId = itemId;
            items[itemId]->optionValue = kOptionResultsMissing;
        }
    }

    void Offer(std::int32_t itemId, std::int32_t checkState, std::int32_t option) {
        OfferedItem item;
        item.item.itemId = itemId;
        item.status.itemId = itemId;
        item.status.checkState = checkState;
        item.status.optionValue = option;
        offered.push_back(item);
    }

    ControlFile Asked() const { return AskedFor(recipe, offered, items); }

    Recipe recipe;
    std::vector<OfferedItem> offered;
    ItemArray items;
};

TEST_F(AskedForTest, OnlyOfferedItemsHaveALine) {
    Offer(kItemMicroMechanics, kNotACheckItem, 1);
    Offer(kItemThermalStress, 1, kOptionNone);
    EXPECT_THAT(Asked(), Contains(Pair("IsThermalResidualstressOutput", "1")));
    EXPECT_THAT(Asked(), Contains(Pair("IDCompositeModel", "1")));
    EXPECT_THAT(Asked(), Not(Contains(Key("IsFlowResidualstressOutput"))));
}

TEST_F(AskedForTest, AnItemWithoutResultsIsOff) {
    Offer(kItemThermalStress, 1, kOptionResultsMissing);
    Offer(kItemDensity, kNotACheckItem, kOptionResultsMissing);
    EXPECT_THAT(Asked(), Contains(Pair("IsThermalResidualstressOutput", "0")));
    EXPECT_THAT(Asked(), Contains(Pair("IsDensityOutput", "0")));
    EXPECT_THAT(Asked(), Contains(Pair("IDCompositeModel", "-2")));
}

TEST_F(AskedForTest, AnOptionOfItsOwnSwitchesAnItemOff) {
    Offer(kItemRunner, kNotACheckItem, 0);
    Offer(kItemFiberOrientation, kNotACheckItem, 5);
    Offer(kItemInsertFiberMaterial, kNotACheckItem, 0);
    Offer(kItemDigimatExport, kNotACheckItem, 0);
    EXPECT_THAT(Asked(), Contains(Pair("IsRunnerOutput", "0")));
    EXPECT_THAT(Asked(), Contains(Pair("IsDoMaterialReduction", "0")));
    EXPECT_THAT(Asked(), Contains(Pair("IsPartInsertMaterialReduction", "1")));
    EXPECT_THAT(Asked(), Contains(Pair("DigimatOutput", "1")));
}

TEST_F(AskedForTest, ReductionsHaveTheirSegments) {
    struct Row {
        std::int32_t option;
        const char* theta;
        const char* strengthX;
        const char* strengthY;
    };
    for (const Row& row : {Row{0, "1", "1", "1"}, Row{1, "8", "5", "2"}, Row{2, "15", "10", "3"},
                           Row{3, "23", "15", "4"}, Row{4, "30", "20", "5"},
                           Row{5, "15", "10", "3"}, Row{-2, "15", "10", "3"}}) {
        for (const auto& [itemId, section] :
             {std::pair(kItemFiberOrientation, std::string("[MATERIAL REDUCTION] Fiber")),
              std::pair(kItemInsertFiberMaterial,
                        std::string("[PARTINSERT MATERIAL REDUCTION] Fiber"))}) {
            SCOPED_TRACE(section + std::to_string(row.option));
            offered.clear();
            Offer(itemId, kNotACheckItem, row.option);
            const ControlFile asked = Asked();
            EXPECT_EQ(asked.at(section + "ThetaXSegment"), row.theta);
            EXPECT_EQ(asked.at(section + "ThetaYSegment"), row.theta);
            EXPECT_EQ(asked.at(section + "ThetaZSegment"), row.theta);
            EXPECT_EQ(asked.at(section + "StrengthXSegment"), row.strengthX);
            EXPECT_EQ(asked.at(section + "StrengthYSegment"), row.strengthY);
            EXPECT_EQ(asked.at("[MAP DOMAIN] SegmentX"), "80");
        }
    }
}

TEST_F(AskedForTest, DensitiesHaveTheirFactors) {
    using Row = std::tuple<std::int32_t, const char*, const char*, const char*>;
    for (const auto& [option, output, reduction, factor] :
         {Row{0, "0", "0", "0"}, Row{1, "1", "1", "2"}, Row{2, "1", "1", "4"},
          Row{3, "1", "1", "6"}, Row{4, "1", "1", "8"}, Row{5, "1", "1", "10"},
          Row{6, "1", "0", "0"}, Row{-2, "0", "0", "0"}}) {
        SCOPED_TRACE(option);
        offered.clear();
        Offer(kItemDensity, kNotACheckItem, option);
        const ControlFile asked = Asked();
        EXPECT_EQ(asked.at("IsDensityOutput"), output);
        EXPECT_EQ(asked.at("IsDoDensityReduction"), reduction);
        EXPECT_EQ(asked.at("[DENSITY REDUCTION] DensityReduction"), factor);
    }
}

TEST_F(AskedForTest, WithoutWeldLineDataTheUsualOnesStand) {
    const ControlFile asked = Asked();
    EXPECT_EQ(asked.at("[WELDLINE ANGLE] WeldlineAngle2"), "30.000");
    EXPECT_EQ(asked.at("[WELDLINE ANGLE] WeldlineAngle3"), "60.000");
    EXPECT_EQ(asked.at("[WELDLINE ANGLE] WeldlineAngle4"), "90.000");
    EXPECT_EQ(asked.at("[REDUCTION RATE] ReductionRate1"), "0.800");
    EXPECT_EQ(asked.at("[REDUCTION RATE] ReductionRate2"), "0.900");
    EXPECT_EQ(asked.at("[REDUCTION RATE] ReductionRate3"), "0.950");
    EXPECT_EQ(asked.at("[DIGIMAT WELDLINE ANGLE] WeldlineAngle"), "135.000");
}

TEST_F(AskedForTest, TheRecipesWeldLineDataStand) {
    recipe.weldlineAngles = {10.0, 20.0, 40.5};
    recipe.reductionRates = {0.0, 0.5, 1.0};
    recipe.digimatAngle = 90.0;
    const ControlFile asked = Asked();
    EXPECT_EQ(asked.at("[WELDLINE ANGLE] WeldlineAngle4"), "40.500");
    EXPECT_EQ(asked.at("[REDUCTION RATE] ReductionRate1"), "0.000");
    EXPECT_EQ(asked.at("[DIGIMAT WELDLINE ANGLE] WeldlineAngle"), "90.000");
}

TEST_F(AskedForTest, TheAnnealedMeshHasItsLineAndNoMeshKind) {
    recipe.meshKind = kMeshDeformed;
    EXPECT_THAT(Asked(), Contains(Pair("IsDeformedMesh", "1")));
    EXPECT_THAT(Asked(), Not(Contains(Key("IsAnnealingDeformedMesh"))));
    recipe.annealing = true;
    EXPECT_THAT(Asked(), Contains(Pair("IsDeformedMesh", "0")));
    EXPECT_THAT(Asked(), Contains(Pair("IsAnnealingDeformedMesh", "1")));
}

TEST_F(AskedForTest, OnlyMappedMeshesHaveAPath) {
    recipe.mappedMesh = "/meshes/cover.cdb";
    EXPECT_EQ(Asked().at("MapFile"), " ");
    recipe.meshKind = kMesh3DMappingShell;
    EXPECT_EQ(Asked().at("MapFile"), "/meshes/cover.cdb");
    EXPECT_EQ(Asked().at("Is3DMappingShell"), "1");
}

}  // namespace
