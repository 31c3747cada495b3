// The suite's result reader, as far as the engine uses it.
//
// THE LIBRARY BUILT HERE IS A STAND-IN. The suite ships its own QuentaResultEngine; put that file
// in the place of this one, at link or at load time, and the engine uses it without a rebuild. The
// engine requires three operations: BeginReading, GetResultVersion and EndReading.
//
// The stand-in takes the decimal number at the start of the file as the result version: a file that
// starts with "1004" is a file of version 1004.
#pragma once

// No import declaration for users on Windows: calls go through the import library, and a program
// may define a class of its own with this name.
#if defined(_WIN32) && defined(QUENTA_RESULT_ENGINE_BUILD)
#define QUENTA_RESULT_ENGINE_API __declspec(dllexport)
#elif defined(QUENTA_RESULT_ENGINE_BUILD)
#define QUENTA_RESULT_ENGINE_API __attribute__((visibility("default")))
#else
#define QUENTA_RESULT_ENGINE_API
#endif

class QUENTA_RESULT_ENGINE_API CQuentaResultReader_Manipulator {
public:
    CQuentaResultReader_Manipulator();
    ~CQuentaResultReader_Manipulator();
    CQuentaResultReader_Manipulator(const CQuentaResultReader_Manipulator&) = delete;
    CQuentaResultReader_Manipulator& operator=(const CQuentaResultReader_Manipulator&) = delete;

    /// Opens the result file. `path` is in the form of the system's file functions; `options` is
    /// for the suite's own reader, and the engine passes null.
    /// Returns 0 on success, another value otherwise.
    int BeginReading(const char* path, void* options);

    /// Version of the result file that was opened; 0 when none was.
    long long GetResultVersion();

    /// Closes the file. Allowed without a file.
    void EndReading();

private:
    [[maybe_unused]] long long version_ = 0;  // of the file that was opened
};
