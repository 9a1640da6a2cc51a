#pragma once

#include "automation/interface_description.h"

// Every member that any interface of the control will have, in its place and with its dispatch
// identifier, whether it is built yet or not: a host compiled against one version finds the same
// identifiers in the next. Only ever append.
namespace mavrin2::interfaces::plan {
extern const automation::MemberPlan Mavrin2;
extern const automation::MemberPlan Mavrin2Events;
extern const automation::MemberPlan Channel;
extern const automation::MemberPlan Colors;
extern const automation::MemberPlan Device;
extern const automation::MemberPlan DeviceLine;
extern const automation::MemberPlan FileInfo;
extern const automation::MemberPlan LameEnc;
extern const automation::MemberPlan Markers;
extern const automation::MemberPlan Position;
extern const automation::MemberPlan Recorder;
extern const automation::MemberPlan Scale;
extern const automation::MemberPlan FileFormat;
extern const automation::MemberPlan Transform;
}  // namespace mavrin2::interfaces::plan
