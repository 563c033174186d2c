#pragma once
// Adding an effect that the user chose, at its place in the stack. The order that the panel keeps, from
// the top of the stack down, is kit, geometry objects, effectors, renderers, main effect.

#include "host/HostSuites.h"

/// What GetIndexOfNewEffectToLayer is asked for.
enum Idle_Cmd : int
{
    Idle_Cmd_None = 0,     ///< Nothing.
    Idle_Cmd_Apply = 1,    ///< The place for a new effect, whether or not one of its kind is there.
    Idle_Cmd_ApplyOnce = 2 ///< The same, unless the layer already holds an effect with this key.
};

/// The index that a new effect is to have in the stack with it in it, or -1 if it is not to be added: a null
/// layer, key 0, nothing asked for. Changes nothing. Throws the integer 516 if a suite is missing; after any
/// other host error the last effect that was read stands for those below it.
int GetIndexOfNewEffectToLayer(int pluginId, SPBasicSuite* basicSuite, int key, _AEGP_Layer** layer,
                               Idle_Cmd cmd);

/// Adds the effect with that key and moves it to `index`. Key 0 or a negative index does nothing and makes
/// no host call. Returns the first host error, 0 for none; an effect that could not be moved stays where
/// the host put it.
int ApplyEffectToLayerAtIndex(int pluginId, SPBasicSuite* basicSuite, int key, _AEGP_Layer** layer,
                              int index);

/// Adds the effect at its place. With a null layer the user is told so and the key is dropped. Opens no
/// undo group. Always 0.
int ApplyEffectToLayerIdleFn(int pluginId, SPBasicSuite* basicSuite, int key, _AEGP_Layer** layer);
