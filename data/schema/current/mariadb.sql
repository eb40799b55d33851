-- The current schema of the device database (version 1.1) for MariaDB.
-- Texts are compared byte by byte and hold every character, as in the other databases.

CREATE TABLE __version (
    Major       INTEGER,
    Minor       INTEGER,
    SchemaDate  VARCHAR(32),
    schemaNotes VARCHAR(255)
) CHARACTER SET utf8mb4 COLLATE utf8mb4_bin;

CREATE TABLE DeviceProtocols (
    ProtocolId  INTEGER NOT NULL,
    Name        VARCHAR(64),
    Description VARCHAR(255),
    PRIMARY KEY (ProtocolId)
) CHARACTER SET utf8mb4 COLLATE utf8mb4_bin;

CREATE TABLE MajorDeviceCategories (
    MajorDeviceCategoryId INTEGER NOT NULL,
    Name                  VARCHAR(64),
    Description           VARCHAR(255),
    PRIMARY KEY (MajorDeviceCategoryId)
) CHARACTER SET utf8mb4 COLLATE utf8mb4_bin;

CREATE TABLE MinorDeviceCategories (
    MinorDeviceCategoryId INTEGER NOT NULL,
    Name                  VARCHAR(64),
    Description           VARCHAR(255),
    PRIMARY KEY (MinorDeviceCategoryId)
) CHARACTER SET utf8mb4 COLLATE utf8mb4_bin;

CREATE TABLE DeviceCategories (
    DeviceCategoryId      INTEGER NOT NULL,
    MajorDeviceCategoryId INTEGER NOT NULL,
    MinorDeviceCategoryId INTEGER NOT NULL,
    PRIMARY KEY (DeviceCategoryId),
    UNIQUE (MajorDeviceCategoryId, MinorDeviceCategoryId),
    FOREIGN KEY (MajorDeviceCategoryId) REFERENCES MajorDeviceCategories (MajorDeviceCategoryId),
    FOREIGN KEY (MinorDeviceCategoryId) REFERENCES MinorDeviceCategories (MinorDeviceCategoryId)
) CHARACTER SET utf8mb4 COLLATE utf8mb4_bin;

CREATE TABLE Manufacturers (
    TavMfrNameId INTEGER NOT NULL,
    Name         VARCHAR(64),
    Description  VARCHAR(255),
    PRIMARY KEY (TavMfrNameId)
) CHARACTER SET utf8mb4 COLLATE utf8mb4_bin;

CREATE TABLE MfrProtocols (
    MfrProtocolId INTEGER NOT NULL,
    TavMfrNameId  INTEGER NOT NULL,
    ProtocolId    INTEGER NOT NULL,
    MfrId         VARCHAR(16),
    PRIMARY KEY (MfrProtocolId),
    UNIQUE (TavMfrNameId, ProtocolId),
    FOREIGN KEY (TavMfrNameId) REFERENCES Manufacturers (TavMfrNameId),
    FOREIGN KEY (ProtocolId) REFERENCES DeviceProtocols (ProtocolId)
) CHARACTER SET utf8mb4 COLLATE utf8mb4_bin;

CREATE TABLE DeviceTypes (
    TavDevTypeId  INTEGER NOT NULL,
    MfrProtocolId INTEGER NOT NULL,
    DeviceType    VARCHAR(16),
    Name          VARCHAR(64),
    Description   VARCHAR(255),
    PRIMARY KEY (TavDevTypeId),
    UNIQUE (MfrProtocolId, DeviceType),
    FOREIGN KEY (MfrProtocolId) REFERENCES MfrProtocols (MfrProtocolId)
) CHARACTER SET utf8mb4 COLLATE utf8mb4_bin;

CREATE TABLE DeviceRevisions (
    TavDevRevId      INTEGER NOT NULL,
    TavDevTypeId     INTEGER NOT NULL,
    DeviceRevision   VARCHAR(16),
    DeviceCategoryId INTEGER NOT NULL,
    Name             VARCHAR(64),
    Description      VARCHAR(255),
    PRIMARY KEY (TavDevRevId),
    UNIQUE (TavDevTypeId, DeviceRevision),
    FOREIGN KEY (TavDevTypeId) REFERENCES DeviceTypes (TavDevTypeId),
    FOREIGN KEY (DeviceCategoryId) REFERENCES DeviceCategories (DeviceCategoryId)
) CHARACTER SET utf8mb4 COLLATE utf8mb4_bin;
