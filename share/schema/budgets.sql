-- The budget store. Money columns hold whole ten-thousandths of a pound;
-- dates are ISO text.
CREATE TABLE tblBudget (
    BudgetID    INTEGER PRIMARY KEY AUTOINCREMENT,
    Title       VARCHAR(50),
    BillAccount VARCHAR(50),
    CCLevel     INTEGER,
    CCName      VARCHAR(50),
    Created     DATE,
    MasterID    INTEGER DEFAULT -1,
    BudgetType  INTEGER DEFAULT -1
);
CREATE INDEX idxBudgetMaster ON tblBudget (MasterID);

CREATE TABLE tblBudgetEntry (
    DateID       INTEGER PRIMARY KEY AUTOINCREMENT,
    BudgetID     INTEGER,
    SelectedDate DATE,
    Usage        CURRENCY,
    Recurring    CURRENCY,
    OneOff       CURRENCY,
    Adjustments  CURRENCY
);
CREATE INDEX idxBudgetEntryBudget ON tblBudgetEntry (BudgetID);

CREATE TABLE tblTempGrid (
    CostType VARCHAR(50),
    "Order"  SMALLINT,
    p1 CURRENCY, p2 CURRENCY, p3 CURRENCY, p4 CURRENCY, p5 CURRENCY, p6 CURRENCY,
    p7 CURRENCY, p8 CURRENCY, p9 CURRENCY, p10 CURRENCY, p11 CURRENCY, p12 CURRENCY
);
