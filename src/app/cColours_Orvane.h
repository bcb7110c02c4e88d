#pragma once
// The colour scheme object of the program: the palette and its tables, and one
// colour for each kind of report parameter.
#include "app/cColours.h"

class cColours_Orvane : public cColours {
public:
    ColourNumber Param_CircuitID() const { return Grey(4); }
    ColourNumber Param_Description() const { return Grey(3); }
    ColourNumber Param_InvoiceID() const { return Grey(2); }
    ColourNumber Param_DateTime() const { return Indigo(2); }
    ColourNumber Param_CallHours() const { return Indigo(3); }
    ColourNumber Param_DistBand() const { return Indigo(4); }
    ColourNumber Param_Threshold() const { return pink(2); }
    ColourNumber Param_AccCostCentre() const { return pink(3); }
    ColourNumber Param_Conference() const { return Coral(5); }
    ColourNumber Param_Currency() const { return Coral(4); }
    ColourNumber Param_Tagging() const { return Coral(3); }
    ColourNumber Param_Data() const { return Coral(2); }
    ColourNumber Param_Exclusions() const { return Turquoise(2); }
    ColourNumber Param_Openzone() const { return Turquoise(3); }
    ColourNumber Param_CallClass() const { return Turquoise(4); }
    ColourNumber Param_BillRef() const { return Coral(5); }
    ColourNumber Param_PercentDiff() const { return Turquoise(4); }
    ColourNumber Param_SiteRef() const { return Indigo(2); }
};
