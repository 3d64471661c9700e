// Questions and file dialogs: the one door through which the program asks its user. The window
// answers with real dialogs, tests with prepared answers.
#pragma once

#include <optional>
#include <string>

#include "files/Settings.h"

namespace korvane {

enum class MessageIcon { Exclamation, Question, Information, Stop };
enum class MessageButtons { Ok, YesNo, YesNoCancel };
enum class Answer { Ok, Yes, No, Cancel };

/// A modal message box. Lines of the text are separated by CR LF.
struct Message {
    std::string text;
    std::string title;
    MessageIcon icon = MessageIcon::Exclamation;
    MessageButtons buttons = MessageButtons::Ok;
    std::optional<Answer> onEnter = {};  ///< the default button; none: the first
};

/// What a file dialog shows.
struct FileDialog {
    std::string title;
    std::string filterName;          ///< "Korvane Files (*.kvobject)"
    std::string filterPattern;       ///< "*.kvobject"
    std::string defaultExtension;    ///< "kvobject", added to a name without one
    std::string proposedPath;        ///< may be empty
    std::string initialFolder = {};  ///< where it starts; empty: in the folder chosen last
    bool showsObject = false;        ///< a picture of the chosen object stands beside the list
};

/// The door itself.
class Prompts {
  public:
    virtual ~Prompts() = default;

    /// Shows the box and waits for the answer. Closing it without a choice is Cancel where there is
    /// one, be it shown or not: for YesNo and YesNoCancel.
    virtual Answer ShowMessage(const Message& message) = 0;

    /// An existing file chosen by the user (UTF-8 path), or nothing when cancelled.
    virtual std::optional<std::string> AskOpenPath(const FileDialog& dialog) = 0;

    /// A path to save to, confirmed when it exists, or nothing when cancelled.
    virtual std::optional<std::string> AskSavePath(const FileDialog& dialog) = 0;

    /// Another colour than `color`, or nothing when cancelled.
    virtual std::optional<Color> AskColor(Color color) = 0;
};

}  // namespace korvane
