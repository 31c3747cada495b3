// Everything that a host needs, in one include.
#pragma once

#include "CZorbFEAInformation.h"
#include "CZorbI2AccessCMIFile.h"
#include "CZorbI2CMIData.h"
#include "CZorbI2Engine.h"
#include "CZorbI2EngineManager.h"
#include "CZorbI2Item.h"
#include "CZorbI2ItemStatus.h"
#include "CZorbI2WeldlineDataStatus.h"
#include "ControlFileFormat.h"
#include "PopItemSelector.h"
#include "SolverSlot.h"
#include "ZorbI2Types.h"
