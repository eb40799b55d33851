-- The manufacturers and devices of the current schema (version 1.1), for MariaDB. Runs after common/mariadb.sql.

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
