#pragma once

#include <QString>

class Program;
class SetupPrinting;
struct SetupAnswers;

/// Writes what the set-up was answered: all of it, or, with std::runtime_error or HostError in
/// words for the user, nothing.
void writeSetup(Program &program, SetupPrinting &printing, const SetupAnswers &answers);

/// Finishes at the start of the program what a power cut interrupted. Throws std::runtime_error.
void finishSetup(const QString &directory);
