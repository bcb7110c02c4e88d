#pragma once
// The help window: one page per topic, with links between the pages.
#include <QDialog>

class QTextBrowser;
class cPathControl;
struct AppContext;

class HelpWindow : public QDialog {
    Q_OBJECT
public:
    explicit HelpWindow(QWidget* parent = nullptr);

    // Shows the page of the topic, or a message when no folder holds it.
    void showTopic(const cPathControl* paths, int topic);
    int topic() const { return topic_; }
    bool pageFound() const { return found_; }
    QTextBrowser* browser() const { return browser_; }

private:
    QTextBrowser* browser_;
    int topic_ = 0;
    bool found_ = false;
};

// Opens the help window at a topic (one window for the whole program, brought to the
// front when it is already open) and returns it.
HelpWindow* ShowHelp(const cPathControl* paths, int topic);
HelpWindow* ShowHelp(const AppContext& ctx, int topic);
