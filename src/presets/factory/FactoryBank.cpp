#include "presets/factory/FactoryBank.h"

#include <algorithm>

#include "presets/factory/FactoryProgram.h"

namespace tessel8 {

namespace {

constexpr size_t kFirstWrittenRow = 2;  // the rows before and after are neutral

void writeRecord(ProgramRecord& record, const factory::FactoryProgram& program) {
    setRecordName(record, program.name);
    std::transform(program.values.begin(), program.values.end(), record.values.begin(),
                   [](double value) { return float(value); });
}

}  // namespace

void writeFactoryBank(std::span<ProgramRecord> programs) {
    std::fill(programs.begin(), programs.end(), neutralProgram());
    auto record = programs.begin() + kFirstWrittenRow;
    for (const auto& rows :
         {factory::kTemplates, factory::kCalls, factory::kVoicesAndWashes, factory::kEchoes,
          factory::kLiquids, factory::kGrooves, factory::kRhythms, factory::kPlaces,
          factory::kJourneys, factory::kMachines, factory::kVisions, factory::kRefrains}) {
        for (const factory::FactoryProgram& program : rows) {
            writeRecord(*record++, program);
        }
    }
}

}  // namespace tessel8
