#pragma once
// The hourglass while work runs: set when made, the pointer before it restored when
// the object goes, on every way out.
class BusyCursor {
public:
    BusyCursor();
    ~BusyCursor();
    BusyCursor(const BusyCursor&) = delete;
    BusyCursor& operator=(const BusyCursor&) = delete;
    // Gives the pointer back before the object goes.
    void release();

private:
    bool active_ = false;
};
