// SPDX-License-Identifier: MIT
// Loading a theme. It is read completely before anything of the current one is replaced.
#include "themes/load_theme.h"

#include <array>
#include <new>
#include <optional>

#include "base/files.h"
#include "game/field_name.h"
#include "highscores/highscore_table.h"

namespace sorvex {
namespace {

void ReportRefusal(Desktop& desktop, const std::string& name, const std::string& reason) {
  desktop.ShowMessage(name + ": " + reason + "\r\nLoading default theme..", "Theme not loaded", BoxIcon::Exclamation);
}

// Reads the theme `name`; on failure shows a box with the reason and returns nullopt.
std::optional<Theme> ReadOrReport(Desktop& desktop, const std::string& name) {
  const std::string folder = JoinPath(desktop.ProgramFolder(), name);
  if (!IsComplete(folder)) {
    desktop.ShowMessage(
        "There is an important file missing. Can not load theme " + name + "\r\nLoading default theme..",
        "File(s) missing", BoxIcon::Exclamation);
    return std::nullopt;
  }
  try {
    return ReadTheme(folder);
  } catch (const ThemeError& error) {
    ReportRefusal(desktop, name, error.what());
  } catch (const std::bad_alloc&) {
    ReportRefusal(desktop, name, "there is not enough memory for it");
  }
  return std::nullopt;
}

bool DefaultThemeExists(Desktop& desktop) {
  return ModFileExist::FileExists(FindFile(JoinPath(desktop.ProgramFolder(), kDefaultTheme), "Theme.ini"));
}

void SetSounds(Game& game, const std::string& folder) {
  frmMain& form = game.form;
  form.HitTubeWav = FindFile(folder, "HitTube.wav");
  form.PutInContWav = FindFile(folder, "PutInCont.wav");
  form.PickupWav = FindFile(folder, "Pickup.wav");
  form.LetGoWav = FindFile(folder, "LetGo.wav");
  game.desktop.PrepareWaves(std::array{form.HitTubeWav, form.PutInContWav, form.PickupWav, form.LetGoWav});
}

// If the theme has no items, element 0 of each array keeps its picture.
void SetItemPictures(frmMain& form, const std::vector<ItemPictures>& pictures) {
  const auto arrays = {&form.PicSprite, &form.PicMask, &form.picCont, &form.PicContMask};
  while (form.PicSprite.Count() > 1)
    for (auto* array : arrays) array->Unload(array->Count() - 1);
  for (int n = 0; n < static_cast<int>(pictures.size()); ++n) {
    if (n > 0)
      for (auto* array : arrays) array->Load(n);
    const ItemPictures& item = pictures[static_cast<std::size_t>(n)];
    form.PicSprite(n).SetPicture(item.item);
    form.PicMask(n).SetPicture(item.itemMask);
    form.picCont(n).SetPicture(item.container);
    form.PicContMask(n).SetPicture(item.containerMask);
  }
}

void Show(Game& game, const std::string& name, const Theme& theme) {
  frmMain& form = game.form;
  modVariables& state = game.state;
  SetSounds(game, JoinPath(game.desktop.ProgramFolder(), name));
  ++state.ThemeLoads;
  PutOnForm(form, state, theme);
  form.Caption = game.desktop.Version().Title + " - " + state.ThemeName;
  NameField(form, state);
  form.lblTime.SetCaption(game.desktop, "00.00");
}

}  // namespace

void PutOnForm(frmMain& form, modVariables& state, const Theme& theme) {
  static_cast<ItemTable&>(state) = theme.items;
  state.LoadedItems = theme.items;
  // The new theme may have fewer items.
  state.CurItem = 0;
  state.CurCont = 0;
  SetItemPictures(form, theme.pictures);
  form.picBg1.SetPicture(theme.background);
  form.picBG2.SetPicture(theme.background2);
  state.PlainX(0) = theme.target.x;
  state.PlainY(0) = theme.target.y;
  form.PicPlainSprite(0).SetPicture(theme.targetPicture);
  form.PicPlainMask(0).SetPicture(theme.targetMask);
  form.PicBlank.SetPicture(form.picBg1.PictureObject());
  form.PicCanvas.Resize(form.PicBlank.Width, form.PicBlank.Height);
  form.ThemeDescription = theme.details.description;
  form.ThemeDate = theme.details.date;
}

bool ReturnItemsToStart(Game& game) {
  modVariables& state = game.state;
  if (state.ThemeLoads == 0 || EveryItemIsPutIn(state)) return false;
  static_cast<ItemTable&>(state) = state.LoadedItems;
  game.form.PicBlank.SetPicture(game.form.picBg1.PictureObject());
  NameField(game.form, state);
  return true;
}

bool LoadTheme(Game& game, const std::string& name) {
  std::string loaded = name;
  std::optional<Theme> theme = ReadOrReport(game.desktop, name);
  if (!theme && name != kDefaultTheme && DefaultThemeExists(game.desktop)) {
    loaded = kDefaultTheme;
    theme = ReadOrReport(game.desktop, loaded);
    if (theme) game.state.ThemeName = loaded;
  }
  if (!theme) {
    game.desktop.ShowMessage("Can't find Default theme", "Theme not found", BoxIcon::Exclamation);
    return false;
  }
  Show(game, loaded, *theme);
  LoadHighScores(game.desktop, game.form, game.state.ThemeName);
  game.form.StopRendering = true;
  game.desktop.DeliverEvents();
  return true;
}

}  // namespace sorvex
