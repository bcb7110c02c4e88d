#pragma once
// Where the forms that the menu opens, and the project selector, are plugged into it.
class frmMenu;
struct AppContext;

void connectMenuForms(frmMenu& menu, AppContext& ctx);
