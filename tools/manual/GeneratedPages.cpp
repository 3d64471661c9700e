#include "tools/manual/GeneratedPages.h"

#include <algorithm>
#include <iterator>
#include <string_view>

#include "app/mShortcuts.h"
#include "editor/mCommands.h"
#include "editor/mKeyBoard.h"
#include "tools/manual/Stage.h"
#include "views/core/KeyMap.h"

namespace korvane::manual {
namespace {

const QString kArrow = QString::fromUtf8(" \xE2\x86\x92 ");

struct PageTitle {
    const char* file;
    const char* title;
};

constexpr PageTitle kPages[] = {
    {"index.htm", "Contents"},
    {"tutorial.htm", "Your first object"},
    {"window.htm", "The window and its views"},
    {"drawing.htm", "Drawing and selecting"},
    {"editing.htm", "Changing the selection"},
    {"textures.htm", "Textures and properties"},
    {"preview.htm", "The 3D preview"},
    {"optimizer.htm", "The optimizer"},
    {"export.htm", "Exporting"},
    {"dialogs.htm", "Dialogs"},
    {"files.htm", "Files and folders"},
    {"keys.htm", "Keys"},
    {"commands.htm", "Commands"},
    {"trouble.htm", "When something goes wrong"},
    {"cli.htm", "korvane-cli"},
};

/// What commands do whose tool button does not tell, or that have none. HTML.
struct Note {
    const char* command;
    const char* text;
};

constexpr Note kNotes[] = {
    {"mnuSizeArbitrary",
     "New brushes are created with as many sides as a dialog asks for, 3 to 64"},
    {"mnuMultiply", "Multiply selected brushes with offsets and rotations"},
    {"mnuExport3DS", "Writes the visible faces as a 3DStudio mesh"},
    {"mnuExportOBJ",
     "Writes the visible faces as a Wavefront mesh, with its materials and textures"},
    {"mnuExportGLB", "Writes the visible faces as one glTF 2.0 file that holds the textures"},
    {"mnuExportSourceCode", "Writes the visible faces as program source text from a template"},
    {"mnuClearRecentFiles", "Empties the list of the objects opened and saved last"},
    {"mnuExit", "Ends the program, after asking about unsaved changes"},
    {"mnuPreferences", "Sizes, colours, keys and warnings"},
    {"mnuShowInvisible", "Toggle on/off showing invisible faces in the 3D preview"},
    {"mnuResetAllViews", "Brings the views, the camera and the split back to where they start"},
    {"mnuInvert", "Turns the faces of the selected brushes inside out"},
    {"mnuOptimize", "Hides the faces that other brushes hide"},
    {"mnuStatistics", "Counts brushes, faces, vertices, polygons and textures"},
    {"mnuHelpContents", "Opens this manual"},
};

QString Html(const QString& text) {
    return text.toHtmlEscaped();
}

const Menu* FindMenu(std::string_view name) {
    const auto found = std::ranges::find(Menus(), name, &Menu::name);
    return found == Menus().end() ? nullptr : &*found;
}

QStringList StepsTo(const Menu* menu) {
    QStringList steps;
    for (; menu != nullptr; menu = menu->parent != nullptr ? FindMenu(menu->parent) : nullptr)
        steps.prepend(Plain(menu->caption));
    return steps;
}

QStringList StepsTo(const Command& command) {
    return StepsTo(FindMenu(command.menu)) << QString::fromUtf8(command.caption);
}

/// The command's own description, or ours.
QString Description(const Command& command) {
    for (const Note& note : kNotes)
        if (std::string_view(note.command) == command.name) return note.text;
    return Html(QString::fromUtf8(command.button.statusText).section(": ", 1));
}

QString Needs(EnabledWhen when) {
    switch (when) {
        case EnabledWhen::Selection:
            return "a selection";
        case EnabledWhen::Clipboard:
            return "copied brushes";
        case EnabledWhen::TwoBrushes:
            return "two brushes";
        case EnabledWhen::UndoAvailable:
            return "a change to take back";
        case EnabledWhen::RedoAvailable:
            return "a change taken back";
        case EnabledWhen::Always:
            break;
    }
    return {};
}

QString Kbd(const QString& key) {
    return "<kbd>" + Html(key) + "</kbd>";
}

/// The keys of the keyboard map and the desktop's shortcut.
QString KeysOf(const Command& command) {
    const KeyMap map;
    QStringList keys;
    for (const std::int16_t code : map.codes)
        if (CommandOfKey(map, code) == command.name) keys << QString::fromStdString(KeyName(code));
    for (const QKeySequence& shortcut : ShortcutsOf(command.name)) keys << shortcut.toString();
    // The key that deletes is both, under two names.
    if (keys.contains("DELETE")) keys.removeAll("Del");
    std::ranges::transform(keys, keys.begin(), Kbd);
    return keys.join(", ");
}

QString CommandRow(const Command& command) {
    const QStringList steps = StepsTo(command).mid(1);
    const QString button = command.button.bar == Bar::None      ? ""
                           : command.button.bar == Bar::ToolBar ? "tool"
                                                                : "edit";
    return "<tr><td><b>" + Html(steps.join(kArrow)) + "</b></td><td>" + Description(command) +
           "</td><td>" + KeysOf(command) + "</td><td>" + button + "</td><td>" +
           Needs(command.enabled) + "</td></tr>\n";
}

/// The commands below a menu of the menu bar.
QString CommandTable(const Menu& menu) {
    const QString caption = Plain(menu.caption);
    QString rows;
    for (const Command& command : Commands())
        if (StepsTo(command).first() == caption) rows += CommandRow(command);
    return "<h2 id=\"" + QString(menu.name) + "\">" + caption +
           "</h2>\n<table class=\"commands\">\n<tr><th>Command</th><th>What it "
           "does</th><th>Keys</th><th>Button</th>"
           "<th>Needs</th></tr>\n" +
           rows + "</table>\n";
}

QString KeyRow(const KeyFunctionInfo& function) {
    const KeyMap map;
    const std::string_view name = CommandOfKey(map, function.standard);
    const Command* command = name.empty() ? nullptr : FindCommand(name);
    return QString("<tr><td>%1</td><td>%2</td><td>%3</td><td>%4</td></tr>\n")
        .arg(Html(function.text), Kbd(QString::fromStdString(KeyName(function.standard))))
        .arg(function.standard)
        .arg(command != nullptr ? Html(Plain(StepsTo(*command).join(kArrow))) : "");
}

QString KeyTable() {
    QString rows = "<tr><th>Function</th><th>Key</th><th>Code</th><th>Command</th></tr>\n";
    for (const int slot : KeyDisplayOrder())
        rows += KeyRow(KeyFunctionTable()[static_cast<std::size_t>(slot)]);
    return "<table>\n" + rows + "</table>\n";
}

QString ShortcutTable() {
    QString rows = "<tr><th>Command</th><th>Shortcut</th></tr>\n";
    for (const Command& command : Commands()) {
        QStringList keys;
        for (const QKeySequence& shortcut : ShortcutsOf(command.name))
            keys << Kbd(shortcut.toString());
        if (keys.isEmpty()) continue;
        rows += "<tr><td>" + Html(Plain(StepsTo(command).join(kArrow))) + "</td><td>" +
                keys.join(", ") + "</td></tr>\n";
    }
    return "<table>\n" + rows + "</table>\n";
}

QString Neighbour(std::ptrdiff_t place, const char* text) {
    if (place < 0 || place >= std::ssize(kPages)) return "<span></span>";
    const PageTitle& page = kPages[place];
    return QString("<a href=\"%1\">%2</a>").arg(page.file, QString(text).arg(page.title));
}

}  // namespace

QString Footer(const QString& file) {
    const auto found = std::ranges::find(kPages, file, &PageTitle::file);
    const std::ptrdiff_t place = found - std::begin(kPages);
    return "<footer>" + Neighbour(place - 1, "&larr; %1") + Neighbour(place + 1, "%1 &rarr;") +
           "</footer>\n";
}

QString Page(const QString& file, const QString& title, const QString& body) {
    return "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
           "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n<title>" +
           title +
           " - Korvane manual</title>\n<link rel=\"stylesheet\" "
           "href=\"manual.css\">\n</head>\n<body>\n"
           "<header><a href=\"index.htm\">Korvane manual</a></header>\n<main>\n<h1>" +
           title + "</h1>\n" + body + "</main>\n" + Footer(file) + "</body>\n</html>\n";
}

QString KeysPage() {
    const QString body =
        R"(<p>Korvane knows two kinds of keys. The <a href="#map">keyboard map</a> holds
single keys for flying and for the commands that are needed all the time; you can change it. The
<a href="#shortcuts">shortcuts</a> are those of your desktop.</p>

<h2 id="map">Keyboard map</h2>
<p>These keys work whenever you are not typing into a text box; Enter and Escape leave the box. Letters
go by what is printed on the key, digits and punctuation by where the key lies on a US keyboard. A
command runs once each time its key is pressed, and waits while you fly. Other keys for the functions
are chosen in <b class="ui">Edit &rarr; Preferences...</b>, page
<a href="dialogs.htm#keyboard-map">Keyboard Map</a>; these are the ones of the start. The code is what
files store for the key.</p>
)" + KeyTable() +
        R"(<p>In <a href="preview.htm#look">mouse-look</a> the left button stands for the key of Move: Forward and
the middle one for that of Move: Backward.</p>

<h2 id="shortcuts">Shortcuts</h2>
<p>They work in text boxes too where these have no use for them. A key of the keyboard map goes first,
and while you fly, Ctrl with a letter is no shortcut. Desktops with habits of their own may have others
than those listed here; the menus show them.</p>
)" + ShortcutTable() +
        R"(
<h2 id="more">Further keys</h2>
<table>
<tr><th>Key</th><th>What it does</th></tr>
<tr><td><kbd>Tab</kbd>, <kbd>Shift+Tab</kbd></td><td>from the views to the buttons, boxes and textures, and
back</td></tr>
<tr><td><kbd>Esc</kbd></td><td>leaves a control for the views; ends a drag where it is</td></tr>
<tr><td><kbd>Enter</kbd></td><td>takes over what was typed into a box of the properties, and goes back to the
views</td></tr>
<tr><td><kbd>Alt</kbd> and the underlined letter</td><td>opens a menu</td></tr>
<tr><td>Arrow keys, <kbd>Home</kbd>, <kbd>End</kbd>, <kbd>Space</kbd> or <kbd>Enter</kbd> in the textures</td>
<td>go through them, and choose one</td></tr>
<tr><td>Arrow keys, <kbd>Page Up</kbd>, <kbd>Page Down</kbd>, <kbd>Home</kbd>, <kbd>End</kbd> on Transparent or
Rotated</td><td>move the slider</td></tr>
<tr><td><kbd>Enter</kbd> on the name of a face's texture</td><td>shows it among the textures</td></tr>
<tr><td><kbd>Enter</kbd> or <kbd>Space</kbd> on a tag of the source code dialog's reference</td><td>inserts it into
the template</td></tr>
<tr><td><kbd>Ctrl</kbd> with a click</td><td>selects, or takes out of the selection</td></tr>
</table>
)";
    return Page("keys.htm", "Keys", body);
}

QString CommandsPage() {
    QString body =
        R"(<p>Everything that the menus hold. Of commands that have a button, the status bar tells while you go
through a menu or rest the mouse on the button. <i>Button</i> tells which of the two
bars has a button for the command, <i>Needs</i> what must be there before it can be used. What the
commands do in full stands on the pages before.</p>
<figure><img src="bars-tool.png" alt="The upper row of buttons">
<figcaption>The tool bar: files, views, what the views show, new brushes</figcaption></figure>
<figure><img src="bars-edit.png" alt="The lower row of buttons">
<figcaption>The edit bar: modes, undo and redo, selection, rotations, flips, copies</figcaption></figure>
)";
    for (const Menu& menu : Menus())
        if (menu.parent == nullptr) body += CommandTable(menu);
    return Page("commands.htm", "Commands", body);
}

QStringList CommandsWithoutText() {
    QStringList names;
    for (const Command& command : Commands())
        if (Description(command).isEmpty()) names << command.name;
    return names;
}

QString MenuPath(const char* command) {
    QStringList steps;
    for (const QString& step : StepsTo(*FindCommand(command))) steps << Html(step);
    return "<b class=\"ui\">" + steps.join(" &rarr; ") + "</b>";
}

QString KeyOf(const QString& function) {
    const auto& table = KeyFunctionTable();
    const auto row = std::ranges::find_if(
        table, [&](const KeyFunctionInfo& info) { return info.text == function; });
    return row == table.end() ? "" : Kbd(QString::fromStdString(KeyName(row->standard)));
}

std::set<QString> MenuPaths() {
    const auto joined = [](QStringList steps) {
        std::ranges::transform(steps, steps.begin(), Plain);
        return steps.join(kArrow);
    };
    std::set<QString> paths;
    for (const Menu& menu : Menus()) paths.insert(joined(StepsTo(&menu)));
    for (const Command& command : Commands()) paths.insert(joined(StepsTo(command)));
    return paths;
}

const QStringList& PageOrder() {
    static const QStringList files = [] {
        QStringList all;
        for (const PageTitle& page : kPages) all << page.file;
        return all;
    }();
    return files;
}

}  // namespace korvane::manual
