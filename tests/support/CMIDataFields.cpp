#include "tests/support/CMIDataFields.h"

#include <cstdint>
#include <sstream>
#include <vector>

#include <zorbi2/ZorbI2Types.h>

namespace support {

namespace {

/// The fields of one block in their order, each with its name.
class FieldVisitor {
public:
    virtual ~FieldVisitor() = default;
    virtual void Text(const std::string& name, std::string& field) = 0;
    virtual void Number(const std::string& name, std::int32_t& field) = 0;
    virtual void Real(const std::string& name, double& field) = 0;
};

std::string Indexed(const char* name, int index) {
    return std::string(name) + "[" + std::to_string(index) + "]";
}

void VisitHead(CZorbI2CMIData& data, FieldVisitor& visitor) {
    visitor.Text("SolverName", data.SolverName);
    visitor.Text("MapFile", data.MapFile);
    visitor.Number("FileVersion", data.FileVersion);
    visitor.Number("SolverType", data.SolverType);
    visitor.Number("ProjectType", data.ProjectType);
    visitor.Number("QuadraticElement", data.QuadraticElement);
    visitor.Number("IDCompositeModel", data.IDCompositeModel);
    visitor.Text("OutFolder", data.OutFolder);
    visitor.Number("IsOriginalMesh", data.IsOriginalMesh);
    visitor.Number("IsDeformedMesh", data.IsDeformedMesh);
    visitor.Number("IsMappedMesh", data.IsMappedMesh);
    visitor.Number("Is3DMappingShell", data.Is3DMappingShell);
    visitor.Number("IsAnnealingDeformedMesh", data.IsAnnealingDeformedMesh);
    visitor.Number("IsDistributeModel", data.IsDistributeModel);
    for (int itemId = 0; itemId < kItemCount; ++itemId) {
        visitor.Number(Indexed("OutputFlags", itemId), data.OutputFlags[itemId]);
    }
    visitor.Number("IsDoDensityReduction", data.IsDoDensityReduction);
}

void VisitSegments(CZorbI2CMIData& data, FieldVisitor& visitor) {
    visitor.Number("SegmentX", data.SegmentX);
    visitor.Number("SegmentY", data.SegmentY);
    visitor.Number("SegmentZ", data.SegmentZ);
    visitor.Number("FiberThetaXSegment", data.FiberThetaXSegment);
    visitor.Number("FiberThetaYSegment", data.FiberThetaYSegment);
    visitor.Number("FiberThetaZSegment", data.FiberThetaZSegment);
    visitor.Number("FiberStrengthXSegment", data.FiberStrengthXSegment);
    visitor.Number("FiberStrengthYSegment", data.FiberStrengthYSegment);
    visitor.Number("InsertFiberThetaXSegment", data.InsertFiberThetaXSegment);
    visitor.Number("InsertFiberThetaYSegment", data.InsertFiberThetaYSegment);
    visitor.Number("InsertFiberThetaZSegment", data.InsertFiberThetaZSegment);
    visitor.Number("InsertFiberStrengthXSegment", data.InsertFiberStrengthXSegment);
    visitor.Number("InsertFiberStrengthYSegment", data.InsertFiberStrengthYSegment);
    visitor.Number("DensityReduction", data.DensityReduction);
}

void VisitTail(CZorbI2CMIData& data, FieldVisitor& visitor) {
    for (int position = 0; position < 3; ++position) {
        visitor.Real(Indexed("WeldlineAngles", position), data.WeldlineAngles[position]);
    }
    for (int position = 0; position < 3; ++position) {
        visitor.Real(Indexed("ReductionRates", position), data.ReductionRates[position]);
    }
    visitor.Real("DigimatWeldlineAngle", data.DigimatWeldlineAngle);
    visitor.Number("IsViewEditModelMapping", data.IsViewEditModelMapping);
    visitor.Number("DigimatOption", data.DigimatOption);
}

void VisitFields(CZorbI2CMIData& data, FieldVisitor& visitor) {
    VisitHead(data, visitor);
    VisitSegments(data, visitor);
    VisitTail(data, visitor);
}

class Describer : public FieldVisitor {
public:
    void Text(const std::string& name, std::string& field) override { fields[name] = field; }
    void Number(const std::string& name, std::int32_t& field) override {
        fields[name] = std::to_string(field);
    }
    void Real(const std::string& name, double& field) override {
        std::ostringstream text;
        text.imbue(std::locale::classic());
        text << field;
        fields[name] = text.str();
    }

    std::map<std::string, std::string> fields;
};

class Numberer : public FieldVisitor {
public:
    void Text(const std::string& /*name*/, std::string& field) override {
        field = "text " + std::to_string(next_++);
    }
    void Number(const std::string& /*name*/, std::int32_t& field) override { field = next_++; }
    void Real(const std::string& /*name*/, double& field) override { field = next_++; }

private:
    std::int32_t next_ = 101;
};

}  // namespace

std::map<std::string, std::string> FieldsOf(const CZorbI2CMIData& data) {
    CZorbI2CMIData copy = data;
    Describer describer;
    VisitFields(copy, describer);
    return describer.fields;
}

CZorbI2CMIData BlockOfDistinctValues() {
    CZorbI2CMIData data;
    Numberer numberer;
    VisitFields(data, numberer);
    return data;
}

}  // namespace support
