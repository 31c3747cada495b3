// Everything that a host needs, in one include.
#pragma once

#include "CZorbFEAInformation.h"
#include "CZorbI2EngineManager.h"
#include "CZorbI2Item.h"
#include "CZorbI2ItemStatus.h"
#include "CZorbI2WeldlineDataStatus.h"
#include "ZorbI2Types.h"
