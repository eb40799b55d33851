-- What both schemas hold from the start, in words that every database takes. An entry without a category has the
-- category 0, and without a protocol the protocol 0: both must be there.

INSERT INTO DeviceProtocols (ProtocolId, Name, Description) VALUES (0, 'HART', 'Digital signal on the 4 to 20 mA loop');
INSERT INTO DeviceProtocols (ProtocolId, Name, Description) VALUES (1, 'Fieldbus', 'Digital field bus with function blocks');
INSERT INTO DeviceProtocols (ProtocolId, Name, Description) VALUES (2, 'Conventional', '4 to 20 mA loop or switch without communication');

INSERT INTO MajorDeviceCategories (MajorDeviceCategoryId, Name, Description) VALUES (0, 'Not classified', '');
INSERT INTO MajorDeviceCategories (MajorDeviceCategoryId, Name, Description) VALUES (1, 'Pressure', '');
INSERT INTO MajorDeviceCategories (MajorDeviceCategoryId, Name, Description) VALUES (2, 'Temperature', '');
INSERT INTO MajorDeviceCategories (MajorDeviceCategoryId, Name, Description) VALUES (3, 'Flow', '');
INSERT INTO MajorDeviceCategories (MajorDeviceCategoryId, Name, Description) VALUES (4, 'Level', '');
INSERT INTO MajorDeviceCategories (MajorDeviceCategoryId, Name, Description) VALUES (5, 'Valve', '');
INSERT INTO MajorDeviceCategories (MajorDeviceCategoryId, Name, Description) VALUES (6, 'Analytical', '');
INSERT INTO MajorDeviceCategories (MajorDeviceCategoryId, Name, Description) VALUES (7, 'Positioning', '');
INSERT INTO MajorDeviceCategories (MajorDeviceCategoryId, Name, Description) VALUES (8, 'Weighing', '');
INSERT INTO MajorDeviceCategories (MajorDeviceCategoryId, Name, Description) VALUES (9, 'Input and output', '');

INSERT INTO MinorDeviceCategories (MinorDeviceCategoryId, Name, Description) VALUES (0, 'Not classified', '');
INSERT INTO MinorDeviceCategories (MinorDeviceCategoryId, Name, Description) VALUES (1, 'Gauge', '');
INSERT INTO MinorDeviceCategories (MinorDeviceCategoryId, Name, Description) VALUES (2, 'Differential', '');
INSERT INTO MinorDeviceCategories (MinorDeviceCategoryId, Name, Description) VALUES (3, 'Absolute', '');
INSERT INTO MinorDeviceCategories (MinorDeviceCategoryId, Name, Description) VALUES (4, 'Thermocouple', '');
INSERT INTO MinorDeviceCategories (MinorDeviceCategoryId, Name, Description) VALUES (5, 'Resistance thermometer', '');
INSERT INTO MinorDeviceCategories (MinorDeviceCategoryId, Name, Description) VALUES (6, 'Magnetic', '');
INSERT INTO MinorDeviceCategories (MinorDeviceCategoryId, Name, Description) VALUES (7, 'Coriolis', '');
INSERT INTO MinorDeviceCategories (MinorDeviceCategoryId, Name, Description) VALUES (8, 'Vortex', '');
INSERT INTO MinorDeviceCategories (MinorDeviceCategoryId, Name, Description) VALUES (9, 'Ultrasonic', '');
INSERT INTO MinorDeviceCategories (MinorDeviceCategoryId, Name, Description) VALUES (10, 'Radar', '');
INSERT INTO MinorDeviceCategories (MinorDeviceCategoryId, Name, Description) VALUES (11, 'Hydrostatic', '');
INSERT INTO MinorDeviceCategories (MinorDeviceCategoryId, Name, Description) VALUES (12, 'Control valve', '');
INSERT INTO MinorDeviceCategories (MinorDeviceCategoryId, Name, Description) VALUES (13, 'On-off valve', '');
INSERT INTO MinorDeviceCategories (MinorDeviceCategoryId, Name, Description) VALUES (14, 'pH and redox', '');
INSERT INTO MinorDeviceCategories (MinorDeviceCategoryId, Name, Description) VALUES (15, 'Conductivity', '');
INSERT INTO MinorDeviceCategories (MinorDeviceCategoryId, Name, Description) VALUES (16, 'Dissolved oxygen', '');
INSERT INTO MinorDeviceCategories (MinorDeviceCategoryId, Name, Description) VALUES (17, 'Multivariable', '');

INSERT INTO DeviceCategories (DeviceCategoryId, MajorDeviceCategoryId, MinorDeviceCategoryId) VALUES (0, 0, 0);
INSERT INTO DeviceCategories (DeviceCategoryId, MajorDeviceCategoryId, MinorDeviceCategoryId) VALUES (1, 1, 1);
INSERT INTO DeviceCategories (DeviceCategoryId, MajorDeviceCategoryId, MinorDeviceCategoryId) VALUES (2, 1, 2);
INSERT INTO DeviceCategories (DeviceCategoryId, MajorDeviceCategoryId, MinorDeviceCategoryId) VALUES (3, 1, 3);
INSERT INTO DeviceCategories (DeviceCategoryId, MajorDeviceCategoryId, MinorDeviceCategoryId) VALUES (4, 2, 4);
INSERT INTO DeviceCategories (DeviceCategoryId, MajorDeviceCategoryId, MinorDeviceCategoryId) VALUES (5, 2, 5);
INSERT INTO DeviceCategories (DeviceCategoryId, MajorDeviceCategoryId, MinorDeviceCategoryId) VALUES (6, 3, 6);
INSERT INTO DeviceCategories (DeviceCategoryId, MajorDeviceCategoryId, MinorDeviceCategoryId) VALUES (7, 3, 7);
INSERT INTO DeviceCategories (DeviceCategoryId, MajorDeviceCategoryId, MinorDeviceCategoryId) VALUES (8, 3, 8);
INSERT INTO DeviceCategories (DeviceCategoryId, MajorDeviceCategoryId, MinorDeviceCategoryId) VALUES (9, 3, 9);
INSERT INTO DeviceCategories (DeviceCategoryId, MajorDeviceCategoryId, MinorDeviceCategoryId) VALUES (10, 4, 9);
INSERT INTO DeviceCategories (DeviceCategoryId, MajorDeviceCategoryId, MinorDeviceCategoryId) VALUES (11, 4, 10);
INSERT INTO DeviceCategories (DeviceCategoryId, MajorDeviceCategoryId, MinorDeviceCategoryId) VALUES (12, 4, 11);
INSERT INTO DeviceCategories (DeviceCategoryId, MajorDeviceCategoryId, MinorDeviceCategoryId) VALUES (13, 5, 12);
INSERT INTO DeviceCategories (DeviceCategoryId, MajorDeviceCategoryId, MinorDeviceCategoryId) VALUES (14, 5, 13);
INSERT INTO DeviceCategories (DeviceCategoryId, MajorDeviceCategoryId, MinorDeviceCategoryId) VALUES (15, 6, 14);
INSERT INTO DeviceCategories (DeviceCategoryId, MajorDeviceCategoryId, MinorDeviceCategoryId) VALUES (16, 6, 15);
INSERT INTO DeviceCategories (DeviceCategoryId, MajorDeviceCategoryId, MinorDeviceCategoryId) VALUES (17, 6, 16);
