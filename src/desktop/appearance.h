#pragma once

#include <QIcon>
#include <QPalette>
#include <string>

/// The program's sign: a section through a mesh over a body.
QIcon program_icon();

/// The sign at a box that would fail its check.
QIcon fault_sign();

/// The ways the program can look: "system" takes the colours of the desktop.
inline constexpr const char * looks[] = { "system", "light", "dark" };

/// Dresses the whole program; an unknown name is "system".
void apply_look(const std::string & look);
