#pragma once

class QWidget;

/// Says what the program is: its name, version and licence.
void show_about(QWidget & parent);
