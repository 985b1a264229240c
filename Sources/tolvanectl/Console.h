#pragma once

#include "Output.h"
#include "ProgressLine.h"

#include <Services/CancellationFlag.h>

#include <functional>
#include <string>
#include <string_view>

namespace tolvane {

enum class Exit { done = 0, failed = 1, wrongCommandLine = 2, cancelled = 130 };

enum class Style { strong, faint };

/// Where a command prints and by what it is stopped.
class Console {
  public:
    /// The standard streams.
    Console();

    /// `--json`: standard output takes one document and nothing else.
    bool& writesJSON() { return writesJSON_; }
    CancellationFlag& cancellation() { return cancellation_; }
    bool isCancelled() const { return cancellation_.isCancelled(); }

    Output& out() { return out_; }
    ProgressLine& progress() { return progress_; }
    /// `text` in this style where standard output is a terminal that knows styles.
    std::string styled(Style style, std::string_view text) const;
    /// Whether standard output is a terminal, and one that can be wiped.
    bool hasScreen() const { return hasScreen_; }
    /// What wipes it, for the next picture.
    static std::string_view wipe() { return "\x1b[H\x1b[2J"; }
    /// Whether people can be asked: both ways lead to a terminal.
    static bool canAsk();
    /// Waits until there is something to read; false when cancelled before.
    bool waitForInput(int file) const;
    /// Puts a question on standard error and waits for a line of standard input; false unless that
    /// begins with "y", also when cancelled.
    bool ask(std::string_view question);
    /// One line on standard error; raw bytes are made text.
    void complain(std::string_view line);
    /// Complains and gives `Exit::failed`.
    Exit fail(std::string_view description);
    /// Hands on what was printed; `exit`, unless that fails.
    Exit finish(Exit exit);

  private:
    bool writesJSON_ = false;
    bool hasScreen_ = false;
    bool usesStyles_ = false;
    CancellationFlag cancellation_;
    Output out_;
    ProgressLine progress_;
};

}
