#pragma once

#include <QWidget>

/// Lets what stands beside a box come, go and grey with it: the label whose buddy it is, when that is no control itself, and the
/// button named "browse_" and the box. So the pages need no rule of their own for them. To be called once the pages stand.
void follow_boxes(QWidget & root);
