-- The manufacturers and devices of the old schema (version 1.0), for PostgreSQL. Runs after common/postgresql.sql.

CREATE TABLE MfrIds (
    DevMfrId  BIGINT NOT NULL,
    MfrIdName VARCHAR(64),
    PRIMARY KEY (DevMfrId)
);

CREATE TABLE DevTypes (
    DevMfrId    BIGINT NOT NULL,
    DevType     BIGINT NOT NULL,
    DevTypeDesc VARCHAR(64),
    PRIMARY KEY (DevMfrId, DevType),
    FOREIGN KEY (DevMfrId) REFERENCES MfrIds (DevMfrId)
);

CREATE TABLE PDevices (
    UDevRevId      VARCHAR(24) NOT NULL,
    DevMfrId       BIGINT NOT NULL,
    DevType        BIGINT NOT NULL,
    DevName        VARCHAR(64),
    DevRev         BIGINT,
    DevDDLRev      BIGINT,
    DevProtocolRev BIGINT,
    PRIMARY KEY (UDevRevId),
    FOREIGN KEY (DevMfrId, DevType) REFERENCES DevTypes (DevMfrId, DevType)
);
