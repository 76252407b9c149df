#include "desktop/about.h"

#include "desktop/appearance.h"

#include <QApplication>
#include <QMessageBox>

void show_about(QWidget & parent)
{
    QMessageBox box(&parent);
    box.setWindowTitle(QObject::tr("About"));
    box.setIconPixmap(program_icon().pixmap(96));
    box.setTextFormat(Qt::RichText);
    box.setText(QObject::tr("<h3>3D Mag/Gravity Inversion Setup</h3><p>Version %1</p>"
                            "<p>Prepares 3D inversions of magnetic and gravity surveys: from the readings, the ground and a mesh "
                            "it makes a folder that the solvers run from.</p>"
                            "<p>Free software under the GNU General Public License, version 3. It comes with no warranty.</p>"
                            "<p>Made with Qt %2.</p>")
                    .arg(QApplication::applicationVersion(), QString::fromLatin1(qVersion())));
    box.exec();
}
