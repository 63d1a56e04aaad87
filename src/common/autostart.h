#pragma once

/// Starts the program when the user logs on to the machine.
class Autostart
{
public:
    virtual ~Autostart() = default;

    /// Switches it on (for this program in the present working folder) or off. Returns false when
    /// the system refused.
    virtual bool set(bool on) = 0;
};
