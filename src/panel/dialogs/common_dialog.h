// The dialog in which the user names a file.
#pragma once

#include <QObject>
#include <QString>
#include <functional>
#include <string>

class QFileDialog;
class QWidget;
struct Controls;

// Set Filter and FilterIndex, call Open or Save, read FileName.
class CommonDialog : public QObject {
public:
    CommonDialog(Controls& controls, QWidget* window);

    QString Filter;       // pairs of name and pattern: "Text Files (*.txt)|*.txt|..."
    int FilterIndex = 1;  // the pair to begin with, counted from 1
    // Why a name cannot be saved under, as part of a sentence; empty if it can. The dialog then
    // says so and stays open.
    std::function<std::string(const QString&)> Objection;
    QString FileName;  // the chosen file with its whole path; empty after a Cancel

    void Open();
    void Save();

private:
    void Run(QFileDialog& box);

    Controls& controls_;
    QWidget* window_;
    QString folder_;  // where the user was last; empty before the first file
};
