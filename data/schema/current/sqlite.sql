-- The manufacturers and devices of the current schema (version 1.1), for SQLite. Runs after common/sqlite.sql.

CREATE TABLE Manufacturers (
    TavMfrNameId INTEGER NOT NULL,
    Name         VARCHAR(64) CHECK (length(Name) <= 64),
    Description  VARCHAR(255) CHECK (length(Description) <= 255),
    PRIMARY KEY (TavMfrNameId)
);

CREATE TABLE MfrProtocols (
    MfrProtocolId INTEGER NOT NULL,
    TavMfrNameId  INTEGER NOT NULL,
    ProtocolId    INTEGER NOT NULL,
    MfrId         VARCHAR(16) CHECK (length(MfrId) <= 16),
    PRIMARY KEY (MfrProtocolId),
    UNIQUE (TavMfrNameId, ProtocolId),
    FOREIGN KEY (TavMfrNameId) REFERENCES Manufacturers (TavMfrNameId),
    FOREIGN KEY (ProtocolId) REFERENCES DeviceProtocols (ProtocolId)
);

CREATE TABLE DeviceTypes (
    TavDevTypeId  INTEGER NOT NULL,
    MfrProtocolId INTEGER NOT NULL,
    DeviceType    VARCHAR(16) CHECK (length(DeviceType) <= 16),
    Name          VARCHAR(64) CHECK (length(Name) <= 64),
    Description   VARCHAR(255) CHECK (length(Description) <= 255),
    PRIMARY KEY (TavDevTypeId),
    UNIQUE (MfrProtocolId, DeviceType),
    FOREIGN KEY (MfrProtocolId) REFERENCES MfrProtocols (MfrProtocolId)
);

CREATE TABLE DeviceRevisions (
    TavDevRevId      INTEGER NOT NULL,
    TavDevTypeId     INTEGER NOT NULL,
    DeviceRevision   VARCHAR(16) CHECK (length(DeviceRevision) <= 16),
    DeviceCategoryId INTEGER NOT NULL,
    Name             VARCHAR(64) CHECK (length(Name) <= 64),
    Description      VARCHAR(255) CHECK (length(Description) <= 255),
    PRIMARY KEY (TavDevRevId),
    UNIQUE (TavDevTypeId, DeviceRevision),
    FOREIGN KEY (TavDevTypeId) REFERENCES DeviceTypes (TavDevTypeId),
    FOREIGN KEY (DeviceCategoryId) REFERENCES DeviceCategories (DeviceCategoryId)
);
