// The names of the server library's entry points.

#ifndef QUILLKIT_SIMULATOR_ENTRY_POINTS_H_
#define QUILLKIT_SIMULATOR_ENTRY_POINTS_H_

#include <algorithm>
#include <iterator>
#include <string_view>

namespace quillbox {

inline constexpr std::string_view kEntryPoints[] = {"IMSPInit",
                                                    "IMSPTerminate",
                                                    "IMSPLogin",
                                                    "IMSPLogout",
                                                    "IMSPWakeup",
                                                    "IMSPAbort",
                                                    "IMSPIOCtl",
                                                    "IMSPCheckString",
                                                    "IMSPBatchConfiguration",
                                                    "IMSPChangeIdentity",
                                                    "IMSPCreateAB",
                                                    "IMSPDeleteAB",
                                                    "IMSPClearAB",
                                                    "IMSPSizeofAB",
                                                    "IMSPReadAB",
                                                    "IMSPListABEntries",
                                                    "IMSPListAB",
                                                    "IMSPReadPageBoundaries",
                                                    "IMSPCreateEntry",
                                                    "IMSPReadEntryProperties",
                                                    "IMSPModifyEntry",
                                                    "IMSPDeleteEntry",
                                                    "IMSPExport",
                                                    "IMSPGetExportFile",
                                                    "IMSPImport",
                                                    "IMSPImpExpState",
                                                    "IMSPImpExpAbort"};

// Whether this is an entry point, or "*", which means any.
inline bool IsEntryPoint(std::string_view name) {
  return name == "*" || std::ranges::find(kEntryPoints, name) != std::end(kEntryPoints);
}

}  // namespace quillbox

#endif  // QUILLKIT_SIMULATOR_ENTRY_POINTS_H_
