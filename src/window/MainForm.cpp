#include "window/MainForm.h"

#include "base/Definition.h"
#include "base/Palette.h"
#include "platform/controls/Toolkit.h"
#include "window/CoreState.h"
#include "window/DesktopState.h"
#include "window/DropState.h"
#include "window/FilmStripState.h"
#include "window/MenuBar.h"
#include "window/ModelessForms.h"
#include "window/PicturesState.h"
#include "window/PreferencesForm.h"
#include "window/PreviewState.h"

namespace pixorra {

// In the order of their controls, from the back to the front.
struct MainForm::Regions {
  Regions(Form& window, Host& host)
      : menu(window),
        core(window),
        preview(window, host),
        strip(window, host),
        desk(window, host),
        drop(host),
        pictures(window, host),
        preferences(host.toolkit) {}

  MenuBar menu;
  CoreState core;
  PreviewState preview;
  FilmStripState strip;
  DesktopState desk;
  DropState drop;
  PicturesState pictures;
  PreferencesForm preferences;
  ModelessForms modeless;
};

MainForm::MainForm(Host& services)
    : host(services),
      Window(services.toolkit, "MainForm"),
      regions_(std::make_unique<Regions>(Window, services)),
      menu(regions_->menu),
      core(regions_->core),
      preview(regions_->preview),
      strip(regions_->strip),
      desk(regions_->desk),
      drop(regions_->drop),
      pictures(regions_->pictures),
      preferences(regions_->preferences),
      modeless(regions_->modeless) {
  host.toolkit.SetTones(palette::Tones);
  host.toolkit.SetHand(Drawing(host, "HandPointer", 32, 32));
  Window.SetTwipsWidth(11730);
  Window.SetTwipsHeight(9090);
  Window.SetSizable(true);
  Window.SetKeyPreview(true);
  // The company name lies on the strip's band, which is made after it.
  core.CompanyNameLabel.BringToFront();
}

MainForm::~MainForm() = default;

}  // namespace pixorra
