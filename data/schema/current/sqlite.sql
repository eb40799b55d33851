-- The current schema of the device database (version 1.1) for SQLite.
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
