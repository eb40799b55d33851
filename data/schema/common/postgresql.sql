-- What both schemas of the device database share, for PostgreSQL: version, protocols, categories.
-- Identifiers are not quoted anywhere: PostgreSQL folds them to small letters, in statements as well.

CREATE TABLE __version (
    Major       INTEGER,
    Minor       INTEGER,
    SchemaDate  VARCHAR(32),
    schemaNotes VARCHAR(255)
);

CREATE TABLE DeviceProtocols (
    ProtocolId  INTEGER NOT NULL,
    Name        VARCHAR(64),
    Description VARCHAR(255),
    PRIMARY KEY (ProtocolId)
);

CREATE TABLE MajorDeviceCategories (
    MajorDeviceCategoryId INTEGER NOT NULL,
    Name                  VARCHAR(64),
    Description           VARCHAR(255),
    PRIMARY KEY (MajorDeviceCategoryId)
);

CREATE TABLE MinorDeviceCategories (
    MinorDeviceCategoryId INTEGER NOT NULL,
    Name                  VARCHAR(64),
    Description           VARCHAR(255),
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
