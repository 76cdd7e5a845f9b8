#include "strip_chart/csv.h"
#include "strip_chart/parts.h"

#include <QClipboard>
#include <QDateTime>
#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QMessageBox>
#include <QSaveFile>

namespace tqx {

StripDoors StripDoors::Desktop() {
    return {
        [](QWidget* parent, const QString& title, const QString& suggested, const QString& filter) {
            QFileDialog dialog(parent, title, QString(), filter);
            dialog.setAcceptMode(QFileDialog::AcceptSave);
            dialog.setDefaultSuffix(QFileInfo(suggested).suffix());
            dialog.selectFile(suggested);
            return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
        },
        [](QWidget* parent, const QString& title, const QString& text) {
            QMessageBox::warning(parent, title, text);
        }};
}

void StripChart::Doors(StripDoors doors) {
    m_parts->Doors = std::move(doors);
}

void StripChart::ConnectFileCommands() {
    const StripCommands& commands = m_parts->Commands;
    connect(&commands[StripCommand::CopyPicture], &QAction::triggered, this,
            [this] { QGuiApplication::clipboard()->setImage(Picture()); });
    connect(&commands[StripCommand::CopyReadout], &QAction::triggered, this,
            [this] { QGuiApplication::clipboard()->setText(ReadoutText()); });
    connect(&commands[StripCommand::SavePicture], &QAction::triggered, this,
            &StripChart::SavePicture);
    connect(&commands[StripCommand::SaveView], &QAction::triggered, this,
            [this] { ExportSamples(false); });
    connect(&commands[StripCommand::SaveAll], &QAction::triggered, this,
            [this] { ExportSamples(true); });
}

QString StripChart::AskFileName(const QString& title, const QString& suffix,
                                const QString& filter) {
    const QString stamp =
        QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd HH-mm-ss"));
    const QString name = Title().isEmpty() ? tr("Chart") : Title();
    return m_parts->Doors.SaveFileName(this, title, name + QLatin1Char(' ') + stamp + suffix,
                                       filter);
}

namespace {

/// Writes a file so that one that was there before stays when anything fails. What went wrong in
/// words; empty when all is well.
template <typename Write>
QString SaveWhole(const QString& name, Write write) {
    QSaveFile file(name);
    const bool written = file.open(QIODevice::WriteOnly) && write(file) && file.commit();
    return written ? QString()
                   : StripChart::tr("%1 could not be saved: %2. A file of this name that was there "
                                    "before is unchanged.")
                         .arg(name, file.errorString());
}

} // namespace

void StripChart::SavePicture() {
    const QImage picture = Picture();
    const QString title = tr("Save the picture");
    const QString name = AskFileName(title, QStringLiteral(".png"), tr("Pictures (*.png)"));
    if (name.isEmpty()) {
        return;
    }
    const QString trouble =
        SaveWhole(name, [&picture](QSaveFile& file) { return picture.save(&file, "PNG"); });
    if (!trouble.isEmpty()) {
        m_parts->Doors.Message(this, title, trouble);
    }
}

void StripChart::ExportSamples(bool all) {
    const QString title = all ? tr("Export all samples") : tr("Export the samples on view");
    // What was on view when the key was pressed, though samples go on coming under the dialog.
    StripSelection selection = all ? SelectAll(m_parts->Model) : SelectOnView(m_parts->Model);
    const QString name =
        AskFileName(title, QStringLiteral(".csv"), tr("Comma-separated values (*.csv)"));
    if (name.isEmpty()) {
        return;
    }
    const QString trouble = SaveWhole(
        name, [&](QSaveFile& file) { return WriteStripCsv(file, m_parts->Model, selection); });
    if (!trouble.isEmpty()) {
        m_parts->Doors.Message(this, title, trouble);
    }
}

} // namespace tqx
