-- A bill project in SQLite form: the host product's tables that this program reads.
-- Money columns hold whole ten-thousandths of a pound; dates are ISO text, but
-- Tbl50.CreateDate, which the host product keeps as text "dd/mm/yyyy".
CREATE TABLE Tbl50 (
    VeloraAccount VARCHAR(50),
    LocID         VARCHAR(50),
    Imports       VARCHAR(20),
    CRV           VARCHAR(10),
    CreateDate    VARCHAR(10)
);

CREATE TABLE Tbl997 (
    CallID      INTEGER,
    ServiceNo   VARCHAR(21),
    CallDate    DATE,
    Destination VARCHAR(50),
    Duration    DOUBLE,
    Cost        CURRENCY
);

CREATE TABLE Tbl307 (
    ServiceNo             VARCHAR(21),
    SourceAccountNo       VARCHAR(20),
    BillCost              CURRENCY,
    TaxCost               CURRENCY,
    PreTaxCost            CURRENCY,
    TotalDiscount         CURRENCY,
    PreDiscountCost       CURRENCY,
    TaxRate               SINGLE,
    TaxDescription        VARCHAR(20),
    EventClass            INTEGER,
    EventSubClass         INTEGER,
    UsageStartDate        DATE,
    UsageEndDate          DATE,
    RentalStartDate       DATE,
    RentalEndDate         DATE,
    CallVolume            INTEGER,
    Duration              DOUBLE,
    CallType              SMALLINT,
    ProductCode           VARCHAR(30),
    ServiceType           SMALLINT,
    SourceBillRef         VARCHAR(40),
    CFBAccountNo          VARCHAR(12),
    CFBReportNo           VARCHAR(18),
    AdjustmentDescription VARCHAR(128),
    Description1          VARCHAR(30),
    Description2          VARCHAR(30),
    Description3          VARCHAR(16),
    ThisImport            INTEGER
);

CREATE TABLE Tbl407 (
    ServiceNo       VARCHAR(21),
    DiscountProduct VARCHAR(30)
);

CREATE TABLE Tbl017 (
    ColumnName   VARCHAR(50),
    Enumeration  VARCHAR(30),
    Description1 VARCHAR(50)
);

CREATE TABLE TblCC (
    VeloraAccount VARCHAR(50),
    TelNo         VARCHAR(21),
    SourceAccount VARCHAR(20),
    CostCentre1   VARCHAR(50),
    CostCentre2   VARCHAR(50),
    CostCentre3   VARCHAR(50),
    CostCentre4   VARCHAR(50),
    CostCentre5   VARCHAR(50)
);

CREATE TABLE TblTel (
    VeloraAccount VARCHAR(50),
    TelNo         VARCHAR(21),
    Location      VARCHAR(50),
    Name          VARCHAR(50)
);

CREATE TABLE TblPhoneBook (
    VeloraAccount VARCHAR(50),
    TelNo         VARCHAR(21),
    Name          VARCHAR(50),
    "Use"         BOOLEAN
);

CREATE TABLE TblCallSummary1 (
    StartDate DATE,
    EndDate   DATE
);
