// The face of the library: the one class through which a host uses the engine.
#pragma once

#include <map>
#include <string>
#include <vector>

#if defined(_WIN32)
#if defined(ZORBI2_ENGINE_BUILD)
#define ZORBI2_ENGINE_API __declspec(dllexport)
#elif defined(ZORBI2_ENGINE_STATIC)
#define ZORBI2_ENGINE_API
#else
#define ZORBI2_ENGINE_API __declspec(dllimport)
#endif
#elif defined(__GNUC__)
#define ZORBI2_ENGINE_API __attribute__((visibility("default")))
#else
#define ZORBI2_ENGINE_API
#endif

class CZorbFEAInformation;
class CZorbI2AccessCMIFile;
class CZorbI2CMIData;
class CZorbI2Engine;
class CZorbI2Item;
class CZorbI2ItemStatus;
class CZorbI2WeldlineDataStatus;

/// Prepares the hand-over of one run's results to a structural solver.
///
/// The manager owns the engine, the data block and the file writer, and forwards to them. It checks
/// almost nothing: the order of calls is the contract. One whole pass:
///
///     // 1. The three objects.
///     CZorbI2EngineManager manager;
///     manager.CreateEngine(&info);
///     manager.CreateCMIDataBlock();
///     manager.CreateCMIAccess();
///     // 2. Settings, in any order.
///     manager.SetOutFolder(folder);
///     manager.SetMappedMeshFilePath(mesh);
///     manager.SetCMIFileFullPath(folder, name, run, "cmi");
///     // 3. The status; the items then offered, counted, and read until a call returns false.
///     manager.SetEngineCurrentStatus(kSolverAnsys, kMeshDeformed, 0, 0);
///     manager.SetPopItems();
///     manager.HasPopItem();
///     manager.GetPartPopItem(0, &item, &status);
///     // 4. The user's choices, committed; the weld-line data, committed.
///     manager.SetItemStatus(item.itemId, 1, kOptionNone);
///     manager.SetItemsValue();
///     manager.SetWeldlineDataValue();
///     // 5. The file, and the end.
///     manager.WriteCMIFile(0);
///     manager.Close();
///
/// Steps 3 and 4 may be repeated for other solvers and mesh kinds.
///
/// A project record whose flag 1 is not exactly 1 gives a bare engine. It takes the settings of
/// step 2 and supports GetProjectResults, GetItem and Has...Item; WriteCMIFile writes nothing.
/// All other operations below step 2 require an engine that is not bare.
///
/// Calling an operation before the Create operations that it requires breaks the contract: debug
/// builds of the library stop with the name of the missing call, release builds do not check.
///
/// Text is bytes in the system code page. Objects are not synchronized: use a manager and all it
/// owns from one thread at a time. Operations throw only std::bad_alloc and what they name below.
///
/// Strings, maps and vectors cross the boundary by value, so the host and the library must be
/// built with the same compiler family, the same runtime and the same standard library settings.
class ZORBI2_ENGINE_API CZorbI2EngineManager {
public:
    /// Starts with no engine, data block or writer.
    CZorbI2EngineManager();

    /// Destroys the engine, the data block and the writer, in that order.
    ~CZorbI2EngineManager();

    CZorbI2EngineManager(const CZorbI2EngineManager&) = delete;

    /// Copies the three pointers and nothing else: deliberate.
    /// Afterward both managers point at the same objects, and the host must destroy only one of
    /// the two. Objects that this manager held before are not freed.
    CZorbI2EngineManager& operator=(const CZorbI2EngineManager&);

    /// Does nothing: only the destructor frees the objects.
    /// Returns: true.
    bool Close();

    // ---- The three objects --------------------------------------------------------------------

    /// Creates the engine for a project: looks for the run's result files and builds the items.
    /// Parameters: `info` is copied; the host keeps its own. Null gives a bare engine with an empty
    ///     record.
    /// Returns: true; false when there is no memory for the engine, which is null then.
    ///     An engine created earlier is overwritten and not freed.
    /// Throws: std::bad_alloc when memory runs out while the engine is being built; the earlier
    ///     engine stays.
    /// Side effects: those of GetProjectResults for every item but kItemDigimatMucell.
    bool CreateEngine(CZorbFEAInformation* info);

    /// Creates the data block from which the control parameter file is printed.
    /// Returns: true; false when there is no memory for it. An earlier one is overwritten and not
    ///     freed.
    bool CreateCMIDataBlock();

    /// Creates the writer of the control parameter file, without a path.
    /// Returns: true; false when there is no memory for it. An earlier one is overwritten and not
    ///     freed.
    bool CreateCMIAccess();

    /// Returns: the engine, owned by the manager; null before CreateEngine.
    CZorbI2Engine* GetZorbI2Engine();

    /// Returns: the data block, owned by the manager; null before CreateCMIDataBlock.
    CZorbI2CMIData* GetZorbCMIData();

    /// Returns: the writer, owned by the manager; null before CreateCMIAccess.
    CZorbI2AccessCMIFile* GetZorbAccessCMIFile();

    // ---- Project settings ---------------------------------------------------------------------

    /// Sets the output folder ("OutFolder"), where the translator puts its files.
    /// Requires: CreateEngine.
    /// Parameters: `folder` is stored as it is.
    void SetOutFolder(std::string folder);

    /// Sets the path of the mapped mesh ("MapFile"), printed for the two mapped mesh kinds only.
    /// Requires: CreateEngine.
    /// Parameters: `path` is stored as it is.
    void SetMappedMeshFilePath(std::string path);

    /// Sets where WriteCMIFile writes: folder, backslash unless the folder ends in one, name, run
    /// number, dot, extension. `C:\Work`, Part, 2 and cmi give `C:\Work\Part02.cmi`.
    /// Requires: CreateEngine, CreateCMIAccess.
    /// Parameters: `folder` not empty; `run` below 10 is written with a leading 0, any other as
    ///     it is; `extension` without dot.
    /// Throws: std::out_of_range("invalid string position") for an empty folder; the path stays.
    void SetCMIFileFullPath(std::string folder, std::string name, int run, std::string extension);

    /// Turns the mapping of a model edited in the viewer on or off ("IsViewEditModelMapping").
    /// Requires: CreateEngine. Until set, kViewEditAtStart of the project record decides.
    void SetViewEdit(bool on);

    /// Sets the weld-line angle for Digimat, 135.0 until set.
    /// Requires: CreateEngine.
    /// Parameters: `angle` in degrees; any value is accepted.
    void SetDigimatWeldlineData(double angle);

    // ---- Solver status and offered items ------------------------------------------------------

    /// Makes a solver the current one, with its status. Does not rebuild the offered items: call
    /// SetPopItems next.
    /// Requires: CreateEngine.
    /// Parameters: `solver` one of kSolver...; `meshKind` one of kMesh...; `quadraticElement` 0
    ///     off, else on; `annealingMode` kAnnealingDeformedMesh: the deformed mesh is the
    ///     annealing-deformed one. A solver without a slot keeps no status of its own; a value
    ///     that is not a solver also leaves the previous solver's choices current.
    void SetEngineCurrentStatus(int solver, int meshKind, int quadraticElement, int annealingMode);

    /// Reads the status last set for a solver, current or not; zeros until then.
    /// Requires: CreateEngine.
    /// Returns: through the references, which stay untouched for a solver without a slot.
    void GetCurrentSolverStatus(int solver, int& meshKind, int& quadraticElement,
                                int& annealingMode);

    /// Rebuilds the three lists of offered items for the current solver and status. Projects that
    /// are neither solid nor shell keep the lists that they have.
    /// Requires: SetEngineCurrentStatus.
    void SetPopItems();

    /// Counts the offered items of all three groups. The operations below that read offered
    /// items use these counts until the next call: deliberate.
    /// Requires: SetPopItems.
    /// Returns: whether anything is offered.
    bool HasPopItem();

    /// Returns: whether the last HasPopItem counted any item for the part.
    bool HasPartPopItem();

    /// Returns: whether the last HasPopItem counted any item for part inserts.
    bool HasPartInsertPopItem();

    /// Returns: whether the last HasPopItem counted any item for the moldbase.
    bool HasMoldbasePopItem();

    /// Returns: whether the catalogue holds an item for the part, offered or not.
    bool HasPartItem();

    /// Returns: whether the catalogue holds an item for part inserts, offered or not.
    bool HasPartInsertItem();

    /// Returns: whether the catalogue holds an item for the moldbase, offered or not.
    bool HasMoldbaseItem();

    /// Reads one offered item of the part, with the choice made for the current solver.
    /// Requires: HasPopItem.
    /// Parameters: `position` from 0 in offering order; `item` and `status` are filled, and
    ///     `status` must not be null.
    /// Returns: true; false for a null `item` or a position outside the counted items. Both
    ///     records stay untouched then.
    /// Throws: std::out_of_range("invalid vector<T> subscript") for a position that was counted
    ///     but is no longer offered.
    bool GetPartPopItem(int position, CZorbI2Item* item, CZorbI2ItemStatus* status);

    /// Reads any item by its id, offered or not, with the choice made for the current solver.
    /// Requires: SetEngineCurrentStatus.
    /// Parameters: as for GetPartPopItem; `itemId` from 0, below kItemCount.
    /// Returns: true; false for a null `item`, a negative id, one above kItemCount or an item for
    ///     which there was no memory. Both records stay untouched then.
    /// Throws: std::out_of_range("invalid vector<T> subscript") for kItemCount itself: deliberate.
    ///     As long as no solver was ever set, only id 0 throws, and all others return false.
    bool GetPartPopItemByID(int itemId, CZorbI2Item* item, CZorbI2ItemStatus* status);

    /// Like GetPartPopItem, but for part inserts.
    bool GetPartInsertPopItem(int position, CZorbI2Item* item, CZorbI2ItemStatus* status);

    /// Like GetPartPopItem, but for the moldbase.
    bool GetMoldBasePopItem(int position, CZorbI2Item* item, CZorbI2ItemStatus* status);

    // ---- Items and results --------------------------------------------------------------------

    /// Reads one item of the catalogue.
    /// Requires: CreateEngine.
    /// Parameters: `category` one of kCategory...; `itemId` one of kItem...; `item` is filled.
    /// Returns: true; false for a null `item`, an id outside the range or a category other than
    ///     the item's. `*item` stays untouched then.
    bool GetItem(int category, int itemId, CZorbI2Item* item);

    /// Replaces `options` by the options of an item, key to label.
    /// Requires: CreateEngine.
    /// Parameters: `itemId` one of kItem..., not checked.
    /// Returns: whether the item has options.
    bool GetItemAllOptions(int itemId, std::map<int, std::string>& options);

    /// Records the user's choice for one item under the current solver. Items are of two kinds: an
    /// item with check state -1 takes `newOptionValue`, any other `newCheckState`.
    /// Requires: SetEngineCurrentStatus. SetItemsValue commits the choices.
    /// Parameters: `index` is the item's id; the value that the item takes is 0 or above. It is
    ///     not compared with the item's options.
    /// Returns: true; false, and nothing changes, when the results are missing (option -2) or the
    ///     value that the item takes is negative.
    /// Throws: std::out_of_range("invalid vector<T> subscript") for an index that is not an item's
    ///     id.
    bool SetItemStatus(int index, int newCheckState, int newOptionValue);

    /// Commits the choices of the current solver to the items, from which the file is written.
    /// Requires: SetEngineCurrentStatus.
    void SetItemsValue();

    /// Checks again whether the results of an item exist, by the files as they are now. The items
    /// themselves keep what was found when the engine was created.
    /// Requires: CreateEngine.
    /// Parameters: `itemId` one of kItem....
    /// Returns: kResultAvailable when they exist; otherwise a code for what is missing.
    ///     kResultNoCheck for kItemDigimatMucell and for ids that belong to no item.
    /// Side effects: trace lines; the engine's project folder gets its trailing backslash;
    ///     kItemThermalStress without results writes "ThermalTest.txt" and kItemInitialStrain of a
    ///     shell project always writes "ShellIniStrain.txt" into the current folder;
    ///     kItemInsertFiberMaterial reads the run's shot file and leaves it open.
    int GetProjectResults(int itemId);

    // ---- Weld-line data -----------------------------------------------------------------------

    /// Sets the first three weld-line angles and reduction rates of a solver's record. Reaches the
    /// file only through SetWeldlineDataValue.
    /// Requires: CreateEngine.
    /// Parameters: `solver` one of kSolver...; `angles` in degrees and `rates` as fractions, at
    ///     least three of each; any more are ignored.
    /// Returns: true.
    /// Throws: std::out_of_range("invalid vector<T> subscript") for a value that is not a
    ///     solver and for a list that is too short; values stored before the fault stay stored.
    bool SetWeldlineDataStatus(int solver, std::vector<double> angles, std::vector<double> rates);

    /// Makes the record of the current solver the working data, from which the file is written.
    /// Until the first call, that is 30, 60, 90 degrees and 0.8, 0.9, 0.95.
    /// Requires: SetEngineCurrentStatus.
    /// Throws: std::out_of_range("invalid vector<T> subscript") when the current solver is
    ///     none of kSolver...; the working data stays as it is.
    void SetWeldlineDataValue();

    /// Reads the weld-line record of a solver.
    /// Requires: CreateEngine.
    /// Parameters: `solver` one of kSolver...; `status` is filled and must not be null.
    /// Returns: true.
    /// Throws: std::out_of_range("invalid vector<T> subscript") for a value that is not a solver.
    bool GetWeldlinePopData(int solver, CZorbI2WeldlineDataStatus* status);

    // ---- The control parameter file -----------------------------------------------------------

    /// Writes the control parameter file from the committed choices and settings, replacing an
    /// earlier one. Refills the data block: values set in it by hand are lost.
    /// Requires: all three Create operations, SetCMIFileFullPath, SetEngineCurrentStatus.
    /// Parameters: the integer is ignored.
    /// Returns: true, even when the file could not be opened or written. A host that needs to know
    ///     reads the file back.
    /// Throws: std::out_of_range("invalid vector<T> subscript") when the working weld-line data has
    ///     fewer than three angles or rates; no file is touched then.
    bool WriteCMIFile(int);

    // The three objects, owned by the manager and deleted by its destructor. Hosts read them with
    // the getters.
    CZorbI2Engine* engine = nullptr;                ///< see GetZorbI2Engine
    CZorbI2CMIData* cmiData = nullptr;              ///< see GetZorbCMIData
    CZorbI2AccessCMIFile* accessCmiFile = nullptr;  ///< see GetZorbAccessCMIFile
};
