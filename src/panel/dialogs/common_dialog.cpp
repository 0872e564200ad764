#include "panel/dialogs/common_dialog.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QUrl>

#include "panel/dialogs/tick_hold.h"
#include "panel/help/guide_place.h"

namespace {

// The toolkit reads the last brackets of a filter as its patterns and keeps them from the user.
// "*.*" would hide files without a dot.
QStringList NameFilters(const QString& filter) {
    const QStringList parts = filter.split('|');
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        const QString pattern = parts[i + 1] == "*.*" ? QString("*") : parts[i + 1];
        filters.append(parts[i] + " (" + pattern + ")");
    }
    return filters;
}

// The ending that a filter asks for: "txt" for "*.txt", none for all files.
QString EndingOf(const QString& filter, int index) {
    const QString pattern = filter.split('|').value(2 * index - 1);
    return pattern.startsWith("*.") && pattern != "*.*" ? pattern.mid(2) : QString();
}

// A dialog that takes no name to which there is an objection.
class SaveDialog : public QFileDialog {
public:
    SaveDialog(QWidget* window, const CommonDialog& owner)
        : QFileDialog(window, "Save As"), owner_(owner) {}

    void accept() override {
        const QString name = selectedFiles().value(0);
        const bool isToBeSaved = !name.isEmpty() && !QFileInfo(name).isDir();
        const std::string reason =
            isToBeSaved && owner_.Objection ? owner_.Objection(name) : std::string();
        if (reason.empty()) {
            QFileDialog::accept();
        } else {
            Say(QFileInfo(name).fileName(), QString::fromStdString(reason));
        }
    }

private:
    void Say(const QString& name, const QString& reason) {
        constexpr qsizetype longest = 60;
        QMessageBox box(this);
        box.setWindowTitle(windowTitle());
        box.setTextFormat(Qt::PlainText);
        const QString shown = name.size() > longest ? name.left(longest) + QChar(0x2026) : name;
        box.setText(shown + "\nThis name cannot be used: " + reason + '.');
        box.setStandardButtons(QMessageBox::Ok);
        box.exec();
    }

    const CommonDialog& owner_;
};

}  // namespace

CommonDialog::CommonDialog(Controls& controls, QWidget* window)
    : QObject(window), controls_(controls), window_(window) {}

void CommonDialog::Open() {
    QFileDialog box(window_, "Open");
    box.setAcceptMode(QFileDialog::AcceptOpen);
    box.setFileMode(QFileDialog::ExistingFile);
    Run(box);
}

void CommonDialog::Save() {
    SaveDialog box(window_, *this);
    box.setAcceptMode(QFileDialog::AcceptSave);
    box.setFileMode(QFileDialog::AnyFile);
    box.setDefaultSuffix(EndingOf(Filter, FilterIndex));
    QObject::connect(&box, &QFileDialog::filterSelected, this, [this, &box](const QString& chosen) {
        const int index = static_cast<int>(box.nameFilters().indexOf(chosen)) + 1;
        box.setDefaultSuffix(EndingOf(Filter, index));
    });
    Run(box);
}

void CommonDialog::Run(QFileDialog& box) {
    const TickHold hold(controls_);
    box.setOption(QFileDialog::DontUseNativeDialog);
    box.setOption(QFileDialog::HideNameFilterDetails);
    box.setNameFilters(NameFilters(Filter));
    box.selectNameFilter(box.nameFilters().value(FilterIndex - 1));
    const QString shipped = ShippedSetUps();
    if (!shipped.isEmpty()) box.setSidebarUrls(box.sidebarUrls() << QUrl::fromLocalFile(shipped));
    if (!folder_.isEmpty()) {
        box.setDirectory(folder_);
    } else if (box.acceptMode() == QFileDialog::AcceptOpen && !shipped.isEmpty()) {
        box.setDirectory(shipped);  // the first file that a user opens is one of these
    }
    FileName.clear();
    if (box.exec() != QDialog::Accepted) return;
    FileName = box.selectedFiles().value(0);
    folder_ = QFileInfo(FileName).absolutePath();
}
