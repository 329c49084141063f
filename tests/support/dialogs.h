#pragma once

#include <QString>

// Answers the next modal QFileDialog that the window opens: with path, or by
// cancelling it when path is empty. Call it before the click that opens the
// dialog; the answer comes from a timer inside the dialog's own event loop.
// The dialog's title is kept for the test to check.
void answerNextFileDialog(const QString &path);
// Title and start directory of the last dialog answered.
QString lastDialogTitle();
QString lastDialogDirectory();
// Answers prepared that no dialog has taken yet: a test that leaves one behind
// would have it answer a dialog of a later test.
int pendingDialogAnswers();
