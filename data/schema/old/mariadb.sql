-- The old schema of the device database (version 1.0) for MariaDB.
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

CREATE TABLE MfrIds (
    DevMfrId  BIGINT NOT NULL,
    MfrIdName VARCHAR(64),
    PRIMARY KEY (DevMfrId)
) CHARACTER SET utf8mb4 COLLATE utf8mb4_bin;

CREATE TABLE DevTypes (
    DevMfrId    BIGINT NOT NULL,
    DevType     BIGINT NOT NULL,
    DevTypeDesc VARCHAR(64),
    PRIMARY KEY (DevMfrId, DevType),
    FOREIGN KEY (DevMfrId) REFERENCES MfrIds (DevMfrId)
) CHARACTER SET utf8mb4 COLLATE utf8mb4_bin;

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
) CHARACTER SET utf8mb4 COLLATE utf8mb4_bin;
