// Faults of the system on purpose: the linker leads the program's own calls of these functions
// through here (see tests/CMakeLists.txt), so that the code under test is the one that ships.
#pragma once

#include <string>

namespace korvane::test {

/// The steps by which a file comes about.
enum class Step { None, Open, FirstWrite, LaterWrite, Mode, Flush, Close, Rename, Unnamed, Link };

/// From now on this step fails, until None: with LaterWrite a first piece of the data still gets
/// through.
void FailAt(Step step);

/// How often the last step that was to fail did.
int Failures();

/// What has reached the disk since the last call, in order: F a file's content, D a folder's names,
/// R a rename.
std::string TakeTrace();

}  // namespace korvane::test
