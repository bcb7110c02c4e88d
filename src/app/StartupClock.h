#pragma once
// Time and the message-loop yield as the start-up sees them, so that the splash
// timing can be tried with a clock that the caller moves.
#include <QDateTime>

class StartupClock {
public:
    virtual ~StartupClock() = default;
    virtual QDateTime now() = 0;
    // One turn of the message loop: windows paint, clicks arrive.
    virtual void yield() = 0;
};

class SystemStartupClock final : public StartupClock {
public:
    QDateTime now() override;
    void yield() override; // runs the event loop for a short moment without spinning
};

// The splash stays up until this many whole seconds have passed since the start.
inline constexpr int SplashMinimumSeconds = 3;

bool splashTimeServed(const QDateTime& start, const QDateTime& now);
