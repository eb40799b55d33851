-- The old schema of the device database (version 1.0) for SQLite.
-- SQLite keeps no length by itself, so every text states its own as a check; foreign keys hold only on connections
-- that ask for them (FKSupport=1 in the data source).

CREATE TABLE __version (
    Major       INTEGER,
    Minor       INTEGER,
    SchemaDate  VARCHAR(32) CHECK (length(SchemaDate) <= 32),
    schemaNotes VARCHAR(255) CHECK (length(schemaNotes) <= 255)
);

CREATE TABLE DeviceProtocols (
    ProtocolId  INTEGER NOT NULL,
    Name        VARCHAR(64) CHECK (length(Name) <= 64),
    Description VARCHAR(255) CHECK (length(Description) <= 255),
    PRIMARY KEY (ProtocolId)
);

CREATE TABLE MajorDeviceCategories (
    MajorDeviceCategoryId INTEGER NOT NULL,
    Name                  VARCHAR(64) CHECK (length(Name) <= 64),
    Description           VARCHAR(255) CHECK (length(Description) <= 255),
    PRIMARY KEY (MajorDeviceCategoryId)
);

CREATE TABLE MinorDeviceCategories (
    MinorDeviceCategoryId INTEGER NOT NULL,
    Name                  VARCHAR(64) CHECK (length(Name) <= 64),
    Description           VARCHAR(255) CHECK (length(Description) <= 255),
    PRIMARY KEY (MinorDeviceCategoryId)
);

CREATE TABLE DeviceCategories (
    DeviceCategoryId      INTEGER NOT NULL,
    MajorDeviceCategoryId INTEGER NOT NULL,
    MinorDeviceCategoryId INTEGER NOT NULL,
    PRIMARY KEY (DeviceCategoryId),
    UNIQUE (MajorDeviceCategoryId, MinorDeviceCategoryId),
    FOREIGN KEY (MajorDeviceCategoryId) REFERENCES MajorDeviceCategories (MajorDeviceCategoryId),
    FOREIGN KEY (MinorDeviceCategoryId) REFERENCES MinorDeviceCategories (MinorDeviceCategoryId)
);

CREATE TABLE MfrIds (
    DevMfrId  BIGINT NOT NULL,
    MfrIdName VARCHAR(64) CHECK (length(MfrIdName) <= 64),
    PRIMARY KEY (DevMfrId)
);

CREATE TABLE DevTypes (
    DevMfrId    BIGINT NOT NULL,
    DevType     BIGINT NOT NULL,
    DevTypeDesc VARCHAR(64) CHECK (length(DevTypeDesc) <= 64),
    PRIMARY KEY (DevMfrId, DevType),
    FOREIGN KEY (DevMfrId) REFERENCES MfrIds (DevMfrId)
);

CREATE TABLE PDevices (
    UDevRevId      VARCHAR(24) NOT NULL CHECK (length(UDevRevId) <= 24),
    DevMfrId       BIGINT NOT NULL,
    DevType        BIGINT NOT NULL,
    DevName        VARCHAR(64) CHECK (length(DevName) <= 64),
    DevRev         BIGINT,
    DevDDLRev      BIGINT,
    DevProtocolRev BIGINT,
    PRIMARY KEY (UDevRevId),
    FOREIGN KEY (DevMfrId, DevType) REFERENCES DevTypes (DevMfrId, DevType)
);
