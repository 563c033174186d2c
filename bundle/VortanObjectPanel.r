/*
 * The two property lists of the bundle in the language of Rez. The build writes its resource file with
 * write-resource; this file has the same content, for a comparison on a Mac:
 *
 *   Rez -useDF -o rez.rsrc VortanObjectPanel.r
 *   DeRez -useDF rez.rsrc VortanObjectPanel.r
 */

type 'PiPL'
{
    longint = 0;                                /* version of the list */
    longint = 6;                                /* number of properties */

    literal longint = '8BIM';
    literal longint = 'kind';
    longint = 0;
    longint = 4;
    literal longint = 'AEgx';

    literal longint = '8BIM';
    literal longint = 'name';
    longint = 0;
    longint = (nameEnd - nameStart) / 8;
nameStart:
    pstring;
nameEnd:
    align long;

    literal longint = '8BIM';
    literal longint = 'catg';
    longint = 0;
    longint = (categoryEnd - categoryStart) / 8;
categoryStart:
    pstring;
categoryEnd:
    align long;

    literal longint = '8BIM';
    literal longint = 'vers';
    longint = 0;
    longint = 4;
    longint;

    literal longint = '8BIM';
    literal longint = 'mi64';
    longint = 0;
    longint = (intelEnd - intelStart) / 8;
intelStart:
    pstring;
intelEnd:
    align long;

    literal longint = '8BIM';
    literal longint = 'ma64';
    longint = 0;
    longint = (siliconEnd - siliconStart) / 8;
siliconStart:
    pstring;
siliconEnd:
    align long;
};

resource 'PiPL' (16000)
{
    "Vortan Idle Suite",
    "Vortan",
    0x00010000,
    "EffectorAEGP",
    "EffectorAEGP"
};

resource 'PiPL' (16001)
{
    "Vortan Object Panel",
    "Vortan",
    0x00010000,
    "PanelEntryPointFunc",
    "PanelEntryPointFunc"
};
