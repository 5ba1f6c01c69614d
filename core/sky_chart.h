// The external sky-chart program and the hint line of the main window.
#pragma once

#include <string>

#include "core/shared_state.h"

namespace astel {

inline constexpr const char* kSkyChartProgram = "skychart";

// Looks for the sky-chart program on the given PATH; when found, skyChartDir becomes its folder
// (with a trailing "/") and skyChartInstalled true. Returns whether it was found.
bool ProbeSkyChart(const std::string& pathVariable, FileState& files);

// The hint for the General label: the sky-chart hint when the program is missing, otherwise one
// chosen by the telescope.
std::string ChooseHint(bool skyChartFound, const TelescopeState& telescope);

}  // namespace astel
