// SPDX-License-Identifier: MIT
// Building, showing and hiding the highscore panel.
#include "highscores/panel.h"

#include "highscores/highscore_table.h"
#include "platform/desktop_properties.h"

namespace sorvex {
namespace {

void AddRow(Desktop& desktop, ControlArray<Label>& column, int row, const std::string& caption) {
  Label& label = column.Load(row);
  // The row height is the designed one: labels are not resized to their captions before the panel is shown.
  label.Top = column(row - 1).Top + label.Height + 2;
  label.SetCaption(desktop, caption);
  label.Visible = true;
}

}  // namespace

void BuildHighScoreRows(Desktop& desktop, frmMain& form) {
  if (form.lblHighNum.Count() > 1) return;
  for (int row = 1; row < kHighScoreRows; ++row) {
    AddRow(desktop, form.lblHighNum, row, std::to_string(row + 1) + ". ");
    AddRow(desktop, form.lblHighName, row, "n");
    AddRow(desktop, form.lblHighDate, row, "d");
    AddRow(desktop, form.lblHighTime, row, "190");
  }
}

void cmdShowHighscores_Click(Desktop& desktop, frmMain& form, const std::string& themeName) {
  LoadHighScores(desktop, form, themeName);
  ShowControl(desktop, form, form.picHighScores);
}

void cmdHideScores_Click(frmMain& form) { form.picHighScores.Visible = false; }

void picHighScores_Paint(frmMain& form) {
  form.cmdHideScores.Top = form.picHighScores.Height - form.cmdHideScores.Height - 10;
}

}  // namespace sorvex
