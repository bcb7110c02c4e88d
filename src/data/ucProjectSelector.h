#pragma once
// The box that shows the selected project, with a button that drops down the recent
// projects and a line that asks for any other file. Every instance acts on the one
// selection kept in the context, so a project chosen on one form is the project on all.
#include <QPointer>
#include <QStringList>
#include <QWidget>

class QLineEdit;
class QListWidget;
class QPushButton;
struct AppContext;

class ucProjectSelector : public QWidget {
    Q_OBJECT
public:
    // The drop-down shows this many lines.
    static constexpr int ListLines = 11;

    explicit ucProjectSelector(AppContext& ctx, QWidget* parent = nullptr);
    ~ucProjectSelector() override;

    // Makes path the selected project ("" closes the selection), shows its name or
    // "Please select a project", and raises ProjectChanged. False when the project
    // cannot be used; nothing is selected then.
    bool SelectProject(const QString& path);
    // Selects the selected project again, so that a form shows it and hears the event.
    void Refresh();
    // Closes the drop-down when it is down.
    void Cancel();

    bool isDroppedDown() const;
    // The recent projects behind the lines of the drop-down (line 1 is entry 0).
    const QStringList& history() const { return history_; }

    QLineEdit* textBox() const { return txtProject_; }
    QPushButton* browseButton() const { return cmdBrowse_; }
    QListWidget* projectList() const;

signals:
    void ProjectChanged(const QString& path);
    // closed is false when the list has just come down, true when it went up.
    void DropDownChanged(bool closed);

public slots:
    void cmdBrowse_Click();
    // A click on a line of the drop-down: line 0 asks for a file, the others are the
    // recent projects.
    void lstProjects_Click(int line);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void FillProjectList();
    void dropDown();
    void closeList();
    void placeList();
    int lineHeight() const;

    AppContext& ctx_;
    QLineEdit* txtProject_;
    QPushButton* cmdBrowse_;
    QPointer<QListWidget> lstProjects_;
    QStringList history_;
};
