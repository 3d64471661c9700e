// The tutorial: each step with its text, the play that does what the text says, and its picture.
#pragma once

#include <QString>

namespace korvane::manual {

class Stage;

/// Plays the tutorial from the empty window to the exported object, taking its pictures on the way;
/// what does not come out as the text says is noted as a fault.
void PlayTutorial(Stage& stage);

/// tutorial.htm.
QString TutorialPage();

}  // namespace korvane::manual
