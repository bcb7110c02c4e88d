-- The central telephone store shared with the host product.
CREATE TABLE TblTel (
    VeloraAccount VARCHAR(50),
    TelNo         VARCHAR(21),
    Location      VARCHAR(50),
    Name          VARCHAR(50)
);
CREATE INDEX idxTelAccount ON TblTel (VeloraAccount, TelNo);

CREATE TABLE TblPhoneBook (
    VeloraAccount VARCHAR(50),
    TelNo         VARCHAR(21),
    Name          VARCHAR(50),
    "Use"         BOOLEAN
);
CREATE INDEX idxPhoneBookAccount ON TblPhoneBook (VeloraAccount, TelNo);
