// Counts the calls of the C++ allocation functions.
#pragma once

long AllocationsSoFar();
