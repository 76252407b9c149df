#include "creation/solver.h"

#include <algorithm>

namespace {

constexpr std::array<bool, 4> with_old_data = { false, false, true, false };
// This solver's two variations are exchanged: the one with new data reports on the old, and the other way round.
constexpr std::array<bool, 4> with_new_data = { false, false, false, true };
constexpr std::array<bool, 4> in_each_variation = { false, false, true, true };

using enum InputForm;

// The last row, the own solver's, also stands for unknown codes. Its reference is called magnetic even for gravity.
constexpr Solver solvers[] = {
    { 0, classic, "", "", "magsen3d", "maginv3d", "mag3d_ref.sus", false, "dmxerror", "DMXextract", with_old_data },
    { 3, classic, "", "", "magsen3d", "maginv3d", "mag3d_ref.sus", true, "dmxerror", "DMXextract", with_old_data },
    { 6, marked, "MAG", "mag_weights.inp", "magsen3d", "maginv3d", "mag3d_ref.sus", true, "dmxerror", "DMXextract",
      with_old_data },
    { 1, first, "", "", "gzsen3d", "gzinv3d", "", true, "dmxerror", "DMXextract", with_new_data },
    { 2, classic, "", "", "gzsen3d", "gzinv3d", "grav3d_ref.den", true, "dmxerror", "DMXextract", with_old_data },
    { 5, marked, "GRAV", "gz_weights.inp", "gzsen3d", "gzinv3d", "grav3d_ref.den", true, "dmxerror", "DMXextract",
      with_old_data },
    { 4, own, "", "", "qvsen3d", "qvinv3d", "mag3d_ref.sus", true, "QVerror", "QVextract", in_each_variation },
};

constexpr ClassFiles gravity_files = { "grav.obs", "grav.ref", "model.den", "grav3d_ref.den", "grav3d_bounds.den" };
constexpr ClassFiles magnetic_files = { "mag.obs", "mag.ref", "model.sus", "mag3d_ref.sus", "mag3d_bounds.sus" };

}

const Solver & solver_of(std::int32_t method)
{
    const Solver * last = std::end(solvers) - 1;
    return *std::find_if(std::begin(solvers), last, [method](const Solver & solver) { return solver.method == method; });
}

const ClassFiles & class_files(FileClass file_class) { return file_class == FileClass::gravity ? gravity_files : magnetic_files; }
