// Forwards to the engine, the data block and the writer. No logic of its own.
#include <zorbi2/CZorbI2EngineManager.h>

#include <cassert>
#include <new>
#include <utility>

#include <zorbi2/CZorbI2AccessCMIFile.h>
#include <zorbi2/CZorbI2CMIData.h>
#include <zorbi2/CZorbI2Engine.h>
#include <zorbi2/PopItemSelector.h>

#include "cmi/CMIDataFill.h"
#include "results/RunFiles.h"

namespace {

CZorbI2Engine& Created(CZorbI2Engine* engine) {
    assert(engine != nullptr && "CreateEngine has not been called");
    return *engine;
}

CZorbI2CMIData& Created(CZorbI2CMIData* cmiData) {
    assert(cmiData != nullptr && "CreateCMIDataBlock has not been called");
    return *cmiData;
}

CZorbI2AccessCMIFile& Created(CZorbI2AccessCMIFile* accessCmiFile) {
    assert(accessCmiFile != nullptr && "CreateCMIAccess has not been called");
    return *accessCmiFile;
}

CZorbI2Engine& WithCatalogue(CZorbI2Engine* engine) {
    assert(Created(engine).popItemSelector && "the project record's flag 1 is not 1");
    return *engine;
}

PopItemSelector& SelectorOf(CZorbI2Engine* engine) {
    return *WithCatalogue(engine).popItemSelector;
}

cmi::CMIDataSource SourceOfCMIData(const CZorbI2Engine& engine) {
    const PopItemSelector& selector = *engine.popItemSelector;
    return {
        .items = engine.items,
        .currentSolver = selector.currentSolver,
        .meshKind = selector.meshKind,
        .quadraticElement = selector.quadraticElement,
        .annealingMode = selector.annealingMode,
        .offeredProjectType = selector.projectType,
        .solverType = engine.feaInformation->solverType,
        .projectType = engine.feaInformation->projectType,
        .mapFile = engine.mappedMeshFilePath,
        .outFolder = engine.outFolder,
        .weldlineData = *engine.weldlineAngleSet,
        .digimatWeldlineAngle = engine.digimatWeldlineAngle,
        .viewEdit = engine.viewEdit,
    };
}

}  // namespace

CZorbI2EngineManager::CZorbI2EngineManager() = default;

CZorbI2EngineManager::~CZorbI2EngineManager() {
    delete engine;
    delete cmiData;
    delete accessCmiFile;
}

CZorbI2EngineManager& CZorbI2EngineManager::operator=(const CZorbI2EngineManager&) = default;

bool CZorbI2EngineManager::Close() {
    return true;
}

// Earlier objects are overwritten and not freed: deliberate.

bool CZorbI2EngineManager::CreateEngine(CZorbFEAInformation* info) {
    engine = new (std::nothrow) CZorbI2Engine(info);
    return engine != nullptr;
}

bool CZorbI2EngineManager::CreateCMIDataBlock() {
    cmiData = new (std::nothrow) CZorbI2CMIData;
    if (cmiData == nullptr) {
        return false;
    }
    cmi::ResetCMIData(*cmiData);
    return true;
}

bool CZorbI2EngineManager::CreateCMIAccess() {
    accessCmiFile = new (std::nothrow) CZorbI2AccessCMIFile;
    return accessCmiFile != nullptr;
}

CZorbI2Engine* CZorbI2EngineManager::GetZorbI2Engine() {
    return engine;
}

CZorbI2CMIData* CZorbI2EngineManager::GetZorbCMIData() {
    return cmiData;
}

CZorbI2AccessCMIFile* CZorbI2EngineManager::GetZorbAccessCMIFile() {
    return accessCmiFile;
}

void CZorbI2EngineManager::SetOutFolder(std::string folder) {
    Created(engine).outFolder = std::move(folder);
}

void CZorbI2EngineManager::SetMappedMeshFilePath(std::string path) {
    Created(engine).mappedMeshFilePath = std::move(path);
}

void CZorbI2EngineManager::SetCMIFileFullPath(std::string folder, std::string name, int run,
                                              std::string extension) {
    // Both copies before either is stored: without memory, neither object changes.
    std::string path = results::ControlFilePath(folder, name, run, extension);
    std::string samePath = path;
    Created(engine).cmiFileFullPath = std::move(path);
    Created(accessCmiFile).filePath = std::move(samePath);
}

void CZorbI2EngineManager::SetViewEdit(bool on) {
    Created(engine).viewEdit = on;
}

void CZorbI2EngineManager::SetDigimatWeldlineData(double angle) {
    Created(engine).digimatWeldlineAngle = angle;
}

void CZorbI2EngineManager::SetEngineCurrentStatus(int solver, int meshKind, int quadraticElement,
                                                  int annealingMode) {
    WithCatalogue(engine).SetEngineCurrentStatus(solver, meshKind, quadraticElement, annealingMode);
}

void CZorbI2EngineManager::GetCurrentSolverStatus(int solver, int& meshKind, int& quadraticElement,
                                                  int& annealingMode) {
    Created(engine).GetCurrentSolverStatus(solver, meshKind, quadraticElement, annealingMode);
}

void CZorbI2EngineManager::SetPopItems() {
    SelectorOf(engine).SetPopItems();
}

bool CZorbI2EngineManager::HasPopItem() {
    return SelectorOf(engine).HasPopItem();
}

bool CZorbI2EngineManager::HasPartPopItem() {
    return SelectorOf(engine).HasPartPopItem();
}

bool CZorbI2EngineManager::HasPartInsertPopItem() {
    return SelectorOf(engine).HasPartInsertPopItem();
}

bool CZorbI2EngineManager::HasMoldbasePopItem() {
    return SelectorOf(engine).HasMoldbasePopItem();
}

bool CZorbI2EngineManager::HasPartItem() {
    return Created(engine).HasItemOfCategory(kCategoryPart);
}

bool CZorbI2EngineManager::HasPartInsertItem() {
    return Created(engine).HasItemOfCategory(kCategoryPartInsert);
}

bool CZorbI2EngineManager::HasMoldbaseItem() {
    return Created(engine).HasItemOfCategory(kCategoryMoldbase);
}

bool CZorbI2EngineManager::GetPartPopItem(int position, CZorbI2Item* item,
                                          CZorbI2ItemStatus* status) {
    return SelectorOf(engine).GetPartPopItem(position, item, status);
}

bool CZorbI2EngineManager::GetPartPopItemByID(int itemId, CZorbI2Item* item,
                                              CZorbI2ItemStatus* status) {
    return SelectorOf(engine).GetPartPopItemByID(itemId, item, status);
}

bool CZorbI2EngineManager::GetPartInsertPopItem(int position, CZorbI2Item* item,
                                                CZorbI2ItemStatus* status) {
    return SelectorOf(engine).GetPartInsertPopItem(position, item, status);
}

bool CZorbI2EngineManager::GetMoldBasePopItem(int position, CZorbI2Item* item,
                                              CZorbI2ItemStatus* status) {
    return SelectorOf(engine).GetMoldBasePopItem(position, item, status);
}

bool CZorbI2EngineManager::GetItem(int category, int itemId, CZorbI2Item* item) {
    return Created(engine).GetItem(category, itemId, item);
}

bool CZorbI2EngineManager::GetItemAllOptions(int itemId, std::map<int, std::string>& options) {
    return Created(engine).GetItemAllOptions(itemId, options);
}

bool CZorbI2EngineManager::SetItemStatus(int index, int newCheckState, int newOptionValue) {
    return SelectorOf(engine).SetItemStatus(index, newCheckState, newOptionValue);
}

void CZorbI2EngineManager::SetItemsValue() {
    WithCatalogue(engine).SetItemsValue();
}

int CZorbI2EngineManager::GetProjectResults(int itemId) {
    return Created(engine).GetProjectResults(itemId);
}

bool CZorbI2EngineManager::SetWeldlineDataStatus(int solver, std::vector<double> angles,
                                                 std::vector<double> rates) {
    WithCatalogue(engine).SetWeldlineDataStatus(solver, angles, rates);
    return true;
}

void CZorbI2EngineManager::SetWeldlineDataValue() {
    WithCatalogue(engine).SetWeldlineDataValue();
}

bool CZorbI2EngineManager::GetWeldlinePopData(int solver, CZorbI2WeldlineDataStatus* status) {
    WithCatalogue(engine).GetWeldlinePopData(solver, *status);
    return true;
}

bool CZorbI2EngineManager::WriteCMIFile(int /*ignored*/) {
    CZorbI2CMIData& data = Created(cmiData);
    const CZorbI2AccessCMIFile& writer = Created(accessCmiFile);
    cmi::ResetCMIData(data);
    if (!Created(engine).popItemSelector) {
        return true;  // a bare engine has nothing to hand over
    }
    cmi::FillCMIData(data, SourceOfCMIData(*engine));
    const PopItemSelector& selector = *engine->popItemSelector;
    writer.Write(selector.partPopItems, selector.partInsertPopItems, selector.moldbasePopItems,
                 data);
    return true;  // the writer's failures are not reported here: deliberate
}
