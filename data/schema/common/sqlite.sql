-- What both schemas of the device database share, for SQLite: version, protocols, categories.
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
