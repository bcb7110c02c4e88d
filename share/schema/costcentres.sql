-- The central cost-centre store shared with the host product.
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
CREATE INDEX idxCCAccount ON TblCC (VeloraAccount, TelNo);
