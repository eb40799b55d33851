-- What both schemas of the device database share, for MariaDB: version, protocols, categories.
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
